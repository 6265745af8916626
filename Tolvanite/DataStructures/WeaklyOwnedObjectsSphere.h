// The observer registry that all collections share: observer objects in the order of their
// registration, held strongly, each called for as long as its owner lives.
//
//   tolvanite::WeaklyOwnedObjectsSphere<ClockObserver> observers;
//   observers.createNew(controller, [](ClockObserver& o) { o.struck = [](int hour) { ... }; });
//   for (ClockObserver& observer : observers) {
//     if (observer.struck) observer.struck(12);
//   }
#pragma once

#include <algorithm>
#include <atomic>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>
#include <Tolvanite/DataStructures/detail/Counted.h>
#include <Tolvanite/DataStructures/detail/Passes.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A value type: a copy has the same observers and goes its own way from there. Copying costs one
/// reference. There is no way to unsubscribe but the end of the owner.
///
/// Going over a sphere visits the observers as they stood when the pass began; an observer whose
/// owner has gone by the time that the pass reaches it is passed over. Observers may be registered
/// and owners may die during a pass.
template <std::derived_from<WeaklyOwnedObject> T>
class WeaklyOwnedObjectsSphere {
  struct List {
    List() = default;
    List(const List& other)
        : observers(other.observers),
          areTokensOnly(other.areTokensOnly),
          allLivedAt(other.allLivedAt.load(std::memory_order_relaxed)) {}

    /// While `OwnerToken::endedCount()` is this number, all owners live.
    std::uint64_t allLiveWhile() const noexcept {
      return areTokensOnly ? allLivedAt.load(std::memory_order_relaxed) : never;
    }

    static constexpr std::uint64_t never = std::numeric_limits<std::uint64_t>::max();
    SharedCount references{1};
    std::vector<std::shared_ptr<T>> observers;
    // Whether all owners are known to be tokens, and how many of those had ended when all owners
    // in the list were alive. Passes note it, also those over a list that is shared.
    bool areTokensOnly = true;
    std::atomic<std::uint64_t> allLivedAt = OwnerToken::endedCount();
  };
  using ListReference = detail::Counted<List>;

 public:
  /// One pass over the observers of living owners.
  class Iterator {
   public:
    using value_type = T;
    using difference_type = std::ptrdiff_t;

    Iterator() = default;
    T& operator*() const noexcept { return **position_; }
    T* operator->() const noexcept { return position_->get(); }
    Iterator& operator++() noexcept {
      ++position_;
      skipDeadOwners();
      return *this;
    }
    void operator++(int) noexcept { ++*this; }
    bool operator==(std::default_sentinel_t /*end*/) const noexcept { return position_ == end_; }

   private:
    friend class WeaklyOwnedObjectsSphere;
    explicit Iterator(ListReference list) : list_(std::move(list)) {
      if (!list_) return;
      position_ = list_->observers.data();
      end_ = position_ + list_->observers.size();
      skipDeadOwners();
    }
    void skipDeadOwners() noexcept {
      while (position_ != end_ && !(*position_)->isOwnerAlive()) ++position_;
    }

    detail::PassUnderWay pass_;
    // The list outlives the pass, whatever becomes of the sphere meanwhile.
    ListReference list_;
    const std::shared_ptr<T>* position_ = nullptr;
    const std::shared_ptr<T>* end_ = nullptr;
  };

  /// Makes an observer of `owner`, lets `configure` set it up, and registers it behind all others.
  /// `configure` runs before the observer is in the list. Observers of owners that are gone are
  /// let go first: linear, but constant where all owners are tokens and none has ended.
  std::shared_ptr<T> createNew(const Owner& owner, const Block<void(T&)>& configure = nullptr) {
    purgeDealloced();
    auto observer = std::make_shared<T>(owner);
    if (configure) configure(*observer);
    add(observer, owner.isToken());
    return observer;
  }

  /// Registers an observer that the caller made, behind all others; a null pointer is left out.
  void append(std::shared_ptr<T> observer) {
    purgeDealloced();
    if (observer) add(std::move(observer), false);
  }

  /// The first observer whose owner lives, of the list as it stands.
  Iterator begin() const { return Iterator(list_); }
  /// Behind the last.
  std::default_sentinel_t end() const noexcept { return {}; }
  /// `begin()`.
  Iterator makeIterator() const { return begin(); }

  /// Calls `call` with each observer in one pass, as a loop over the sphere does, only quicker.
  template <typename Call>
  [[gnu::always_inline]] inline void forEach(const Call& call) const {
    const auto list = list_;  // Outlives the pass, whatever becomes of the sphere meanwhile.
    if (!list) return;
    const detail::PassUnderWay pass;
    const std::uint64_t endedTokens = OwnerToken::endedCount();
    const std::uint64_t allLiveWhile = list->allLiveWhile();
    bool allLived = true;
    const std::shared_ptr<T>* const end = list->observers.data() + list->observers.size();
    for (const std::shared_ptr<T>* i = list->observers.data(); i != end; ++i) {
      T& observer = **i;
      if (OwnerToken::endedCount() == allLiveWhile || observer.isOwnerAlive()) [[likely]] {
        call(observer);
      } else {
        allLived = false;
      }
    }
    if (allLived) list->allLivedAt.store(endedTokens, std::memory_order_relaxed);
  }

  /// Whether nothing was ever registered that is still held; constant.
  bool isEmpty() const noexcept { return !list_ || list_->observers.empty(); }

 private:
  void add(std::shared_ptr<T> observer, bool isOwnerToken) {
    List& list = listToChange();
    list.areTokensOnly = list.areTokensOnly && isOwnerToken;
    if (!observer->isOwnerAlive()) list.allLivedAt.store(List::never, std::memory_order_relaxed);
    list.observers.push_back(std::move(observer));
  }

  void purgeDealloced() {
    if (!list_) return;
    const std::uint64_t endedTokens = OwnerToken::endedCount();
    if (list_->allLiveWhile() == endedTokens) return;
    const auto isAlive = [](const auto& observer) { return observer->isOwnerAlive(); };
    if (std::ranges::all_of(list_->observers, isAlive)) {
      list_->allLivedAt.store(endedTokens, std::memory_order_relaxed);
      return;
    }
    auto living = ListReference::make();
    std::ranges::copy_if(list_->observers, std::back_inserter(living->observers), isAlive);
    living->areTokensOnly = list_->areTokensOnly || living->observers.empty();
    living->allLivedAt.store(endedTokens, std::memory_order_relaxed);
    // What the dead observers' blocks hold is released with the old list, last: its end may run
    // code that registers here again.
    std::swap(list_, living);
  }

  // A list that a pass or a copy of the sphere holds is left to it as it stands.
  List& listToChange() {
    if (!list_) {
      list_ = ListReference::make();
    } else if (list_.isShared()) {
      list_ = ListReference::make(*list_.get());
    }
    return *list_.get();
  }

  ListReference list_;
};

namespace detail {

/// Calls a block where it is present.
template <typename Event, typename... Arguments>
void call(const Event& block, Arguments&&... arguments) {
  if (block) block(std::forward<Arguments>(arguments)...);
}

/// Calls the block `event` of every observer that has one, in the order of registration.
template <typename Observer, typename Event, typename... Arguments>
void notify(const WeaklyOwnedObjectsSphere<Observer>& observers, Event Observer::* event,
            Arguments&&... arguments) {
  observers.forEach([&](Observer& observer) {
    if (const Event& block = observer.*event) block(arguments...);
  });
}

}  // namespace detail

}  // namespace tolvanite
