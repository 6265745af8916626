// What all array-shaped collections and views offer in the same way: count, access by index, and
// iteration as random-access ranges.
//
//   for (const Track& track : *playlist) std::cout << track.title << '\n';
//   auto longest = std::ranges::max_element(*playlist, {}, &Track::seconds);
#pragma once

#include <cstddef>
#include <iterator>

#include <Tolvanite/DataStructures/ElementArray.h>
#include <Tolvanite/DataStructures/detail/CollectionTexts.h>
#include <Tolvanite/DataStructures/detail/LiveIterator.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// The root of a `Collection` of T, which gives the array that it shows as `shownArray()`.
template <typename Collection, typename T>
class IndexedCollection : public detail::Described {
 public:
  using value_type = T;

  /// Whether there is no element.
  bool isEmpty() const noexcept { return shown().isEmpty(); }
  /// How many elements there are.
  Int count() const noexcept { return shown().count(); }
  /// The same for the standard ranges.
  std::size_t size() const noexcept { return shown().size(); }
  /// The element at `index`; out of range is fatal. Good until the next change.
  const T& operator[](Int index) const { return shown()[index]; }

  /// 0.
  Int startIndex() const noexcept { return 0; }
  /// The count.
  Int endIndex() const noexcept { return count(); }
  /// `index` + 1.
  Int indexAfter(Int index) const noexcept { return index + 1; }

  /// Reads the current content at each step: a change during an iteration is seen.
  detail::LiveIterator<IndexedCollection, T> begin() const noexcept { return {*this, 0}; }
  /// Behind the last element of that moment.
  std::default_sentinel_t end() const noexcept { return {}; }

 protected:
  ~IndexedCollection() = default;

  /// The element; absent when the index is not below the count. A negative index is fatal.
  Optional<T> elementIfAt(Int index) const {
    return index < count() ? Optional<T>(shown()[index]) : Optional<T>();
  }

 private:
  const ElementArray<T>& shown() const noexcept {
    return static_cast<const Collection&>(*this).shownArray();
  }
};

}  // namespace tolvanite
