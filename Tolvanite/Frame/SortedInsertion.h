// Where a value belongs in a sorted array, found by halving, and whether a changed element may keep
// its place. Every search ends within the array whatever the block answers.
//
//   const std::vector<int> array{1, 3, 3, 5};
//   tolvanite::insertionIndexForSortedBy(array, std::less<>(), 3);  // 1, before its ties
//   tolvanite::insertionIndexOf(array, 3, std::less<>());           // 1 or 2, at one of its ties
#pragma once

#include <functional>
#include <ranges>
#include <source_location>
#include <type_traits>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/NamedSortBlock.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// An index where `value` belongs in the sorted `array`: that of the first tie that the halving
/// meets, else the place before the first greater element. At most two calls of the block for each
/// halving.
template <IndexableArray A, typename Value, typename Order>
  requires OrdersBefore<Order, std::ranges::range_reference_t<A>, const Value&> &&
           OrdersBefore<Order, const Value&, std::ranges::range_reference_t<A>>
Int insertionIndexOf(A&& array, const Value& value, Order&& isOrderedBefore) {
  Int low = 0;
  Int high = detail::countOf(array) - 1;
  while (low <= high) {
    const Int mid = low + (high - low) / 2;
    if (std::invoke(isOrderedBefore, detail::elementAt(array, mid), value)) {
      low = mid + 1;
    } else if (std::invoke(isOrderedBefore, value, detail::elementAt(array, mid))) {
      high = mid - 1;
    } else {
      return mid;
    }
  }
  return low;
}

/// The first index of the sorted `array` whose element is not ordered before `value`, or the count:
/// the place before all elements that `value` ties with. One call of the block for each halving and
/// one more.
template <IndexableArray A, typename Value, typename Order>
  requires OrdersBefore<Order, std::ranges::range_reference_t<A>, const Value&>
Int insertionIndexForSortedBy(A&& array, Order&& isOrderedBefore, const Value& value) {
  const Int count = detail::countOf(array);
  if (count == 0) return 0;
  Int low = 0;
  Int high = count - 1;
  while (low < high) {
    const Int mid = low + (high - low) / 2;
    if (std::invoke(isOrderedBefore, detail::elementAt(array, mid), value)) {
      low = mid + 1;
    } else {
      high = mid;
    }
  }
  return std::invoke(isOrderedBefore, detail::elementAt(array, low), value) ? count : low;
}

/// `insertionIndexForSortedBy` with the block of a named order.
template <IndexableArray A, typename T>
  requires std::convertible_to<std::ranges::range_reference_t<A>, const T&>
Int insertionIndexInSortedArray(A&& array, const NamedSortBlock<T>& order,
                                const std::type_identity_t<T>& value) {
  return insertionIndexForSortedBy(array, order.sortBlock, value);
}

/// Whether `element` may stand at `index` of the sorted `array`, in the place of the element there,
/// which is not looked at: true when neither neighbour has to change sides with it, so ties stay.
/// At most four calls of the block. An index out of range is fatal.
template <IndexableArray A, typename Value, typename Order>
  requires OrdersBefore<Order, std::ranges::range_reference_t<A>, const Value&> &&
           OrdersBefore<Order, const Value&, std::ranges::range_reference_t<A>>
bool canElementStayAtIndex(A&& array, const Value& element, Int index, Order&& isOrderedBefore,
                           std::source_location location = std::source_location::current()) {
  const Int count = detail::countOf(array);
  detail::requireIndex(index, count, location);
  if (index > 0) {
    auto&& left = detail::elementAt(array, index - 1);
    if (!std::invoke(isOrderedBefore, left, element) && std::invoke(isOrderedBefore, element, left))
      return false;
  }
  if (index + 1 < count) {
    auto&& right = detail::elementAt(array, index + 1);
    if (!std::invoke(isOrderedBefore, element, right) &&
        std::invoke(isOrderedBefore, right, element))
      return false;
  }
  return true;
}

}  // namespace tolvanite
