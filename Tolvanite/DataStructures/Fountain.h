// Fountains: the listener lists of observable single values. One block per listener, each called
// for as long as its owner lives.
//
//   tolvanite::Fountain<int> fountain;
//   fountain.add(controller, [](int value) { std::cout << value << '\n'; });
//   for (const auto& listener : fountain) listener->block(7);
//
// A fountain does not fire by itself: whoever goes over it calls the blocks.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/EventBlock.h>
#include <Tolvanite/DataStructures/Owner.h>
#include <Tolvanite/DataStructures/detail/Passes.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

namespace detail {

/// An entry of a fountain: a block and the owner that it lives with.
template <typename... Arguments>
class FountainEntry {
 public:
  FountainEntry(Owner owner, Block<void(Arguments...)> onChangeBlock)
      : block(std::move(onChangeBlock)), owner_(std::move(owner)) {}

  /// The owner; null when it is gone.
  std::shared_ptr<const void> owner() const noexcept { return owner_.lock(); }
  bool isOwnerAlive() const noexcept { return owner_.isAlive(); }
  /// Whether the owner is that very object.
  bool isOwnedBy(const Owner& owner) const noexcept { return owner_.isSame(owner); }

  EventBlock<void(Arguments...)> block;

 private:
  Owner owner_;
};

template <typename... Arguments>
class FountainList {
 public:
  using Entry = FountainEntry<Arguments...>;

  FountainList() = default;
  FountainList(const FountainList&) = delete;
  FountainList& operator=(const FountainList&) = delete;

  /// One pass over the listeners of living owners. Unlike a pass over an observer registry it
  /// looks into the current list at each step, deliberately: a listener added during the pass is
  /// reached in it, and a removal can make the pass miss the listener that moves up.
  class Iterator {
   public:
    using value_type = std::shared_ptr<Entry>;
    using difference_type = std::ptrdiff_t;

    Iterator() = default;
    // The entry is held while it is looked at, so that it may be removed meanwhile.
    const std::shared_ptr<Entry>& operator*() const noexcept { return current_; }
    Iterator& operator++() {
      advance();
      return *this;
    }
    void operator++(int) { advance(); }
    bool operator==(std::default_sentinel_t /*end*/) const noexcept { return current_ == nullptr; }

   private:
    friend class FountainList;
    explicit Iterator(const FountainList& fountain) : fountain_(&fountain) { advance(); }
    void advance() {
      const auto& array = fountain_->array_;
      while (position_ < array.size()) {
        const auto& entry = array[position_++];
        if (!entry->isOwnerAlive()) continue;
        current_ = entry;
        return;
      }
      current_ = nullptr;
    }

    PassUnderWay pass_;
    const FountainList* fountain_ = nullptr;
    std::size_t position_ = 0;
    std::shared_ptr<Entry> current_;
  };

  /// Adds a listener behind all others. With `purge`, entries whose owners are gone are let go
  /// first. An owner that is added twice is called twice.
  void add(const Owner& owner, bool purge, Block<void(Arguments...)> onChangeBlock) {
    if (purge) purgeDeallocedListeners();
    array_.push_back(std::make_shared<Entry>(owner, std::move(onChangeBlock)));
  }
  void add(const Owner& owner, Block<void(Arguments...)> onChangeBlock) {
    add(owner, true, std::move(onChangeBlock));
  }

  /// Removes every entry of `owner`, and every entry whose owner is gone.
  void remove(const Owner& owner) {
    removeWhere(
        [&](const Entry& entry) { return !entry.isOwnerAlive() || entry.isOwnedBy(owner); });
  }

  /// Removes the entries whose owners are gone.
  void purgeDeallocedListeners() {
    removeWhere([](const Entry& entry) { return !entry.isOwnerAlive(); });
  }

  Iterator begin() const { return Iterator(*this); }
  std::default_sentinel_t end() const noexcept { return {}; }
  Iterator makeIterator() const { return begin(); }

 private:
  template <typename Condition>
  void removeWhere(const Condition& condition) {
    // What the removed blocks hold is released last: its end may run code that comes back here.
    std::vector<std::shared_ptr<Entry>> kept;
    kept.reserve(array_.size() + 1);
    for (const auto& entry : array_) {
      if (!condition(*entry)) kept.push_back(entry);
    }
    kept.swap(array_);
  }

  std::vector<std::shared_ptr<Entry>> array_;
};

}  // namespace detail

/// The entry of a `Fountain`: `block` takes a T.
template <typename T>
using WeakVoidBlockOwnerWrapper = detail::FountainEntry<const T&>;

/// The entry of a `SourceFountain`: `block` takes a T and an S.
template <typename T, typename S>
using WeakVoidBlockOwnerWrapperSV = detail::FountainEntry<const T&, const S&>;

/// Listeners to values of type T.
template <typename T>
using Fountain = detail::FountainList<const T&>;

/// Listeners to values of type T that come with their source. The library fires none by itself.
template <typename T, typename S>
using SourceFountain = detail::FountainList<const T&, const S&>;

}  // namespace tolvanite
