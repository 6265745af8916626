// A set of elements as the observable collections hold it and pass it around: unordered, each
// element once. A copy costs one reference, whatever its count, and shares the elements.
//
//   const tolvanite::ElementSet<Track> gone = library->remove(std::vector{first, second});
//   for (const Track& track : gone) std::cout << track.title << '\n';
//   if (const Track* stored = library->elements().find(first)) play(*stored);
//
// Membership is decided by the elements' own equality and hash; those of elements that are held by
// smart pointer are the pointee's. What the stored element holds beyond them may differ from the
// equal one that is asked for.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <ostream>
#include <ranges>
#include <string>
#include <type_traits>
#include <utility>

#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/detail/BoxedRange.h>
#include <Tolvanite/DataStructures/detail/IteratorParts.h>
#include <Tolvanite/DataStructures/detail/SharedTable.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A value type with copy-on-write content. The order of iteration is free, and stays the same
/// until the set changes.
template <HashableElement T>
class ElementSet {
  using Slot = typename detail::SharedTable<T, detail::ByElement<T>>::Slot;

 public:
  using value_type = T;

  /// A forward iterator. Good until the set changes.
  class Iterator : public detail::ConstIterator<Iterator, T> {
   public:
    using detail::ConstIterator<Iterator, T>::operator++;

    Iterator() = default;
    const T& operator*() const noexcept { return slot_->box->value; }
    Iterator& operator++() noexcept {
      ++slot_;
      skipEmpty();
      return *this;
    }
    bool operator==(const Iterator& other) const noexcept { return slot_ == other.slot_; }

   private:
    friend class ElementSet;
    friend struct detail::BoxAccess;
    Iterator(const Slot* slot, const Slot* end) noexcept : slot_(slot), end_(end) { skipEmpty(); }
    void skipEmpty() noexcept {
      while (slot_ != end_ && !slot_->box) ++slot_;
    }

    detail::Box<T>* box() const noexcept { return slot_->box; }

    const Slot* slot_ = nullptr;
    const Slot* end_ = nullptr;
  };
  /// The same for the standard ranges.
  using const_iterator = Iterator;

  ElementSet() = default;
  /// These elements.
  ElementSet(std::initializer_list<T> elements) { insertAll(elements); }
  /// The elements of any range; of equal ones the first. Linear.
  template <std::ranges::input_range Range>
    requires(!std::same_as<std::remove_cvref_t<Range>, ElementSet> &&
             std::constructible_from<T, std::ranges::range_reference_t<Range>>)
  ElementSet(Range&& elements) {
    insertAll(std::forward<Range>(elements));
  }

  /// How many elements there are.
  Int count() const noexcept { return table_.count(); }
  /// Whether there is none.
  bool isEmpty() const noexcept { return count() == 0; }
  /// The same for the standard ranges.
  /// @{
  std::size_t size() const noexcept { return static_cast<std::size_t>(count()); }
  bool empty() const noexcept { return isEmpty(); }
  /// @}

  /// Whether an element that equals this one is stored. Constant on the average.
  bool contains(const T& element) const { return table_.find(element) != nullptr; }
  /// The stored element that equals this one, or null. Good for as long as the set or a copy holds
  /// it.
  const T* find(const T& element) const {
    const auto* box = table_.find(element);
    return box ? &box->value : nullptr;
  }

  /// The first element.
  Iterator begin() const noexcept {
    const auto slots = table_.slots();
    return {slots.data(), slots.data() + slots.size()};
  }
  /// Behind the last.
  Iterator end() const noexcept {
    const auto slots = table_.slots();
    return {slots.data() + slots.size(), slots.data() + slots.size()};
  }

  /// "[a, b]", in the order of iteration.
  std::string description() const
    requires HasTextForm<T>
  {
    return detail::listText(*this);
  }

  /// Whether both hold the same elements, by their equality.
  friend bool operator==(const ElementSet& a, const ElementSet& b) {
    return a.table_.hasContentOf(b.table_) ||
           (a.count() == b.count() &&
            std::ranges::all_of(a, [&](const T& element) { return b.contains(element); }));
  }
  friend std::ostream& operator<<(std::ostream& out, const ElementSet& set)
    requires HasTextForm<T>
  {
    return out << set.description();
  }

 protected:
  /// @cond
  using Handle = detail::Handle<T>;

  // Adds a box unless an equal element is stored; whether it did.
  bool insertBox(Handle handle) {
    if (table_.isShared() && contains(*handle)) return false;
    auto& table = table_.tableToChange();
    table.reserveOne();
    const auto spot = table.spotOf(*handle);
    if (table.boxAt(spot)) return false;
    table.insertAt(spot, std::move(handle), 0);
    return true;
  }

  template <typename Range>
  void insertAll(Range&& elements) {
    if constexpr (std::ranges::sized_range<Range>) {
      table_.tableToChange().reserve(static_cast<Int>(std::ranges::size(elements)));
    }
    detail::forEachBoxed<T>(std::forward<Range>(elements),
                            [this](Handle handle) { insertBox(std::move(handle)); });
  }

  detail::SharedTable<T, detail::ByElement<T>> table_;
  /// @endcond
};

/// `ElementSet(range)` holds elements of the range's type.
template <typename Range>
ElementSet(Range&&) -> ElementSet<std::ranges::range_value_t<Range>>;

}  // namespace tolvanite
