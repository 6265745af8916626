// What all set-shaped collections and views offer in the same way: count, membership, the stored
// element for an equal one, and iteration as forward ranges.
//
//   for (const Track& track : *favourites) std::cout << track.title << '\n';
//   if (const Track* stored = favourites->find(track)) play(*stored);
#pragma once

#include <cstddef>
#include <iterator>

#include <Tolvanite/DataStructures/ElementSet.h>
#include <Tolvanite/DataStructures/detail/CollectionTexts.h>
#include <Tolvanite/DataStructures/detail/KeptIterator.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// The root of a `Collection` of T, which gives the set that it shows as `shownSet()`.
template <typename Collection, HashableElement T>
class SetCollection : public detail::Described {
 public:
  using value_type = T;

  /// Whether there is no element.
  bool isEmpty() const noexcept { return shown().isEmpty(); }
  /// How many elements there are.
  Int count() const noexcept { return shown().count(); }
  /// The same for the standard ranges.
  std::size_t size() const noexcept { return shown().size(); }

  /// Whether an equal element is stored. Constant on the average.
  bool contains(const T& element) const { return shown().contains(element); }
  /// The stored element that equals this one, or absent. Its content may be another.
  Optional<T> operator[](const T& element) const {
    const T* stored = find(element);
    return stored ? Optional<T>(*stored) : Optional<T>();
  }
  /// The same without a copy: null when absent, good until the next change.
  const T* find(const T& element) const { return shown().find(element); }

  /// Goes over the elements as they stand at the call, whatever changes meanwhile; their order is
  /// free.
  detail::KeptIterator<ElementSet<T>> begin() const {
    return detail::KeptIterator<ElementSet<T>>(shown());
  }
  /// Behind the last element.
  std::default_sentinel_t end() const noexcept { return {}; }
  /// `begin()`.
  detail::KeptIterator<ElementSet<T>> makeIterator() const { return begin(); }

 protected:
  ~SetCollection() = default;

 private:
  const ElementSet<T>& shown() const noexcept {
    return static_cast<const Collection&>(*this).shownSet();
  }
};

}  // namespace tolvanite
