// Arrays cut, repeated, checked for their count, filtered and sorted: each a plain function on any
// sequence, or on a vector that it changes in place.
//
//   const std::vector<Int> days{1, 2, 3, 4, 5};
//   tolvanite::chunk(days, 2);                            // [[1, 2], [3, 4], [5]]
//   tolvanite::arrayInterweaving(days, 0);                // [1, 0, 2, 0, 3, 0, 4, 0, 5]
//   tolvanite::safe(days, 9).whenNil([] { return Int{0}; });  // 0
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iterator>
#include <optional>
#include <ranges>
#include <source_location>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Frame/detail/RemovalPlan.h>
#include <Tolvanite/Frame/detail/StableSort.h>

namespace tolvanite {

/// A range that knows its count and can be handed on as a value: an array, a set, a map.
template <typename C>
concept CountedCollection =
    std::ranges::sized_range<C> && std::constructible_from<std::remove_cvref_t<C>, C>;

namespace detail {

// The collection itself as an optional: copied, or moved from a temporary.
template <CountedCollection C>
Optional<std::remove_cvref_t<C>> collectionIf(bool condition, C&& collection) {
  if (!condition) return {};
  return Optional<std::remove_cvref_t<C>>(std::in_place, std::forward<C>(collection));
}

inline void requireNotNegative(Int value, const char* name, std::source_location location) {
  if (value < 0)
    fatalFailure(std::string(name) + " is negative: " + std::to_string(value), location);
}

}  // namespace detail

/// Pieces of `size` elements in their order, the last one shorter if need be. A size below 1 is
/// fatal.
template <std::ranges::input_range R>
std::vector<std::vector<ElementOf<R>>> chunk(
    R&& array, Int size, std::source_location location = std::source_location::current()) {
  if (size < 1) fatalFailure("chunk with size " + std::to_string(size), location);
  std::vector<std::vector<ElementOf<R>>> pieces;
  for (auto&& element : array) {
    if (pieces.empty() || detail::countOf(pieces.back()) == size) pieces.emplace_back();
    pieces.back().push_back(element);
  }
  return pieces;
}

/// The sequence as an array with `element` between every two neighbours.
template <std::ranges::input_range R>
std::vector<ElementOf<R>> arrayInterweaving(R&& sequence,
                                            const std::type_identity_t<ElementOf<R>>& element) {
  std::vector<ElementOf<R>> result;
  for (auto&& own : sequence) {
    if (!result.empty()) result.push_back(element);
    result.push_back(own);
  }
  return result;
}

/// Each element `width` times in a row. A negative width is fatal.
template <std::ranges::input_range R>
std::vector<ElementOf<R>> arrayThicknessed(
    R&& array, Int width, std::source_location location = std::source_location::current()) {
  detail::requireNotNegative(width, "arrayThicknessed width", location);
  std::vector<ElementOf<R>> result;
  for (auto&& element : array) {
    result.insert(result.end(), static_cast<std::size_t>(width), element);
  }
  return result;
}

/// The array `n` times, one after the other. A negative n is fatal.
template <std::ranges::forward_range R>
std::vector<ElementOf<R>> multiply(
    R&& array, Int n, std::source_location location = std::source_location::current()) {
  detail::requireNotNegative(n, "multiply factor", location);
  std::vector<ElementOf<R>> result;
  if (std::ranges::empty(array)) return result;
  for (Int i = 0; i < n; ++i) std::ranges::copy(array, std::back_inserter(result));
  return result;
}

/// The count minus one: -1 of an empty array.
template <std::ranges::sized_range R>
Int lastIndex(R&& array) {
  return detail::countOf(array) - 1;
}

/// The array if its count is at least `n`, else absent.
template <CountedCollection C>
Optional<std::remove_cvref_t<C>> tvAtLeastCount(C&& array, Int n) {
  return detail::collectionIf(detail::countOf(array) >= n, std::forward<C>(array));
}

/// The array if its count is `n`, else absent.
template <CountedCollection C>
Optional<std::remove_cvref_t<C>> tvCountEquals(C&& array, Int n) {
  return detail::collectionIf(detail::countOf(array) == n, std::forward<C>(array));
}

/// The array or set if it has an element, else absent.
template <CountedCollection C>
Optional<std::remove_cvref_t<C>> tvAtLeastOne(C&& collection) {
  return tvAtLeastCount(std::forward<C>(collection), 1);
}

/// The element at `index`, or absent when the index is out of range.
template <IndexableArray A>
Optional<ElementOf<A>> safe(A&& array, Int index) {
  if (index < 0 || index >= detail::countOf(array)) return {};
  return Optional<ElementOf<A>>(std::in_place, detail::elementAt(array, index));
}

/// Appends the value if there is one.
template <typename T>
void appendOptional(std::vector<T>& array, std::optional<std::type_identity_t<T>> value) {
  if (value.has_value()) array.push_back(*std::move(value));
}

/// Keeps the elements that the block accepts, in place. The block is called for all of them before
/// any is removed.
template <typename T, typename Accepts>
  requires std::predicate<Accepts&, const T&>
void filtering(std::vector<T>& array, Accepts&& isAccepted) {
  detail::removeWhere(array, [&](const T& element) { return !std::invoke(isAccepted, element); });
}

/// Sorts in place by the block with its answers inverted. By "less than" the result descends, and
/// elements that tie stand in the reverse of their former order.
template <std::movable T, typename Before>
  requires OrdersBefore<Before, const T&, const T&>
void sort_not(std::vector<T>& array, Before&& isOrderedBefore) {
  detail::stableSort(array,
                     [&](const T& a, const T& b) { return !std::invoke(isOrderedBefore, a, b); });
}

/// `sort_not` of a copy.
template <std::ranges::input_range R, typename Before>
  requires OrdersBefore<Before, const ElementOf<R>&, const ElementOf<R>&>
std::vector<ElementOf<R>> sorted_not(R&& sequence, Before&& isOrderedBefore) {
  std::vector<ElementOf<R>> result;
  std::ranges::copy(sequence, std::back_inserter(result));
  sort_not(result, isOrderedBefore);
  return result;
}

/// The element after the first one that equals `current`; after the last comes the first. Absent if
/// there is no equal one.
template <std::ranges::forward_range R, typename Value = ElementOf<R>>
  requires ComparesEqualTo<ElementOf<R>, Value>
Optional<ElementOf<R>> elementAfterWithRotation(R&& array, const Value& current) {
  const auto end = std::ranges::end(array);
  auto found = std::ranges::begin(array);
  while (found != end && !(*found == current)) ++found;
  if (found == end) return {};
  if (++found == end) found = std::ranges::begin(array);
  return Optional<ElementOf<R>>(std::in_place, *found);
}

/// What one array holds beyond another: the elements and their indexes.
template <typename T>
struct ArrayInsertions {
  /// Where the elements stand in the other array, ascending.
  std::vector<Int> indexes;
  /// The elements at these indexes.
  std::vector<T> elements;
  friend bool operator==(const ArrayInsertions&, const ArrayInsertions&) = default;
};

/// What has to be inserted into `array` to make `other` of it, given that `other` holds all of
/// `array` in the same order: the indexes in `other` and the elements there. Otherwise what is left
/// of `array` when `other` ends is passed over.
template <std::ranges::input_range R, std::ranges::input_range Other>
  requires std::same_as<ElementOf<R>, ElementOf<Other>> && std::equality_comparable<ElementOf<R>>
ArrayInsertions<ElementOf<R>> insertions(R&& array, Other&& comparedTo) {
  ArrayInsertions<ElementOf<R>> result;
  auto own = std::ranges::begin(array);
  const auto ownEnd = std::ranges::end(array);
  Int index = 0;
  for (auto&& element : comparedTo) {
    if (own != ownEnd && *own == element) {
      ++own;
    } else {
      result.indexes.push_back(index);
      result.elements.push_back(element);
    }
    ++index;
  }
  return result;
}

/// Whether no element is greater than its successor.
template <std::ranges::forward_range R>
  requires std::totally_ordered<ElementOf<R>>
bool hasAscendingOrder(R&& array) {
  return std::ranges::is_sorted(array);
}

}  // namespace tolvanite
