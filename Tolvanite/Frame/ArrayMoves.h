// Moves of elements within an array. The target is told in one of two ways:
//
// - A `toIndex` is the index that the first moved element has afterwards, counted in the array
//   without the moved elements.
// - A `toIndexAsOfNow` is a gap in the array as it stands: the moved elements end up before the
//   element that is at that index now; the count stands for the end.
//
//   std::vector<std::string> rows{"a", "b", "c", "d", "e"};
//   tolvanite::moveFromIndexesToIndex(rows, {1, 3}, 2);       // rows: a c b d e; gives d, b
//   tolvanite::moveFromIndexToIndexAsOfNow(rows, 0, 3);       // rows: c b a d e
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <iterator>
#include <source_location>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Frame/detail/RemovalPlan.h>

namespace tolvanite {

/// The conversions between the two ways of telling a target.
struct TvArrayMoveHelper {
  TvArrayMoveHelper() = delete;

  /// The `toIndex` that matches the gap `asOfNow`.
  /// @{
  static constexpr Int toIndex_From_AsOfNowToIndex(Int asOfNow, Int fromIndex) {
    return fromIndex < asOfNow ? asOfNow - 1 : asOfNow;
  }
  static constexpr Int toIndex_From_AsOfNowToIndex(Int asOfNow,
                                                   const std::vector<Int>& fromIndexes) {
    return asOfNow - static_cast<Int>(std::ranges::count_if(
                         fromIndexes, [&](Int from) { return from < asOfNow; }));
  }
  /// @}

  /// A gap that matches `toIndex`.
  /// @{
  static constexpr Int asOfNowToIndex_From_ToIndex(Int toIndex, Int fromIndex) {
    return toIndex < fromIndex ? toIndex : checkedAdd<Int>(toIndex, 1);
  }
  static constexpr Int asOfNowToIndex_From_ToIndex(Int toIndex, std::vector<Int> fromIndexes) {
    std::ranges::sort(fromIndexes);
    if (fromIndexes.empty() || fromIndexes.front() >= toIndex) return toIndex;
    Int asOfNow = checkedAdd<Int>(toIndex, 1);
    for (std::size_t i = 1; i < fromIndexes.size() && fromIndexes[i] < asOfNow; ++i) {
      asOfNow = checkedAdd<Int>(asOfNow, 1);
    }
    return asOfNow;
  }
  /// @}
};

namespace detail {

// Moves what stands at the planned positions to `to`, counted in the rest, in the reversed order of
// removal. Moves no element outside of the stretch from the first to the last place concerned.
template <typename T>
std::vector<T> moveAsPlanned(std::vector<T>& array, const RemovalPlan& plan, Int to,
                             std::source_location location) {
  if (plan.positions().empty()) return {};
  const Int count = countOf(array);
  requireGap(to, count - plan.removedCount(), location);

  // Copies first: when one throws, the array is as it was.
  std::vector<T> result;
  result.reserve(plan.positions().size());
  for (const Int position : plan.positions()) result.push_back(elementAt(array, position));
  std::vector<T> moved;
  moved.reserve(result.size());
  for (const Int position : plan.positions()) {
    moved.push_back(std::move(elementAt(array, position)));
  }

  // The elements before the target close up to the front, those behind it to the back.
  const auto& holes = plan.holes();
  std::size_t before = 0;  // the count of holes before the target
  Int split = to;          // the target as a position in the array as it stands
  while (before < holes.size() && holes[before].first <= split) {
    split += holes[before].end - holes[before].first;
    ++before;
  }
  if (before > 0) {
    auto gap = iteratorAt(array, holes.front().first);
    for (std::size_t i = 0; i < before; ++i) {
      const Int end = i + 1 < before ? holes[i + 1].first : split;
      gap = std::move(iteratorAt(array, holes[i].end), iteratorAt(array, end), gap);
    }
  }
  if (before < holes.size()) {
    auto gapEnd = iteratorAt(array, holes.back().end);
    for (std::size_t i = holes.size(); i > before; --i) {
      const Int first = i - 1 > before ? holes[i - 2].end : split;
      gapEnd = std::move_backward(iteratorAt(array, first), iteratorAt(array, holes[i - 1].first),
                                  gapEnd);
    }
  }
  std::move(moved.rbegin(), moved.rend(), iteratorAt(array, to));
  return result;
}

// Moves the element at `from` to `to`, both known to be in range.
template <typename T>
void moveOne(std::vector<T>& array, Int from, Int to) {
  const auto place = iteratorAt(array, from);
  if (from < to) {
    std::rotate(place, place + 1, iteratorAt(array, to + 1));
  } else {
    std::rotate(iteratorAt(array, to), place, place + 1);
  }
}

}  // namespace detail

/// Moves the element at `fromIndex` to `toIndex` and gives the element, valid until the array
/// changes. Indexes out of range are fatal. Moves only what stands between the two places.
template <typename T>
typename std::vector<T>::const_reference moveFromIndexToIndex(
    std::vector<T>& array, Int fromIndex, Int toIndex,
    std::source_location location = std::source_location::current()) {
  const Int count = detail::countOf(array);
  detail::requireIndex(fromIndex, count, location);
  detail::requireIndex(toIndex, count, location);
  detail::moveOne(array, fromIndex, toIndex);
  return detail::elementAt(std::as_const(array), toIndex);
}

/// Moves the element at `fromIndex` into the gap `toIndexAsOfNow`; into one of the gaps beside it,
/// it stays. Otherwise as `moveFromIndexToIndex`.
template <typename T>
typename std::vector<T>::const_reference moveFromIndexToIndexAsOfNow(
    std::vector<T>& array, Int fromIndex, Int toIndexAsOfNow,
    std::source_location location = std::source_location::current()) {
  const Int count = detail::countOf(array);
  detail::requireIndex(fromIndex, count, location);
  detail::requireGap(toIndexAsOfNow, count, location);
  const Int toIndex = TvArrayMoveHelper::toIndex_From_AsOfNowToIndex(toIndexAsOfNow, fromIndex);
  detail::moveOne(array, fromIndex, toIndex);
  return detail::elementAt(std::as_const(array), toIndex);
}

/// Moves the elements at `fromIndexes`, given in any order, to `toIndex` and the places behind it;
/// they keep their order among each other. Gives them, highest source index first. The elements are
/// taken out from the highest index down; a repeated index takes what is at that place then.
/// Indexes that are out of range when their turn comes are fatal. One pass over the stretch
/// concerned.
template <std::copyable T>
std::vector<T> moveFromIndexesToIndex(
    std::vector<T>& array, std::vector<Int> fromIndexes, Int toIndex,
    std::source_location location = std::source_location::current()) {
  std::ranges::sort(fromIndexes);
  const detail::RemovalPlan plan(fromIndexes, detail::countOf(array), location);
  return detail::moveAsPlanned(array, plan, toIndex, location);
}

/// As `moveFromIndexesToIndex`, into the gap `toIndexAsOfNow`.
template <std::copyable T>
std::vector<T> moveFromIndexesToIndexAsOfNow(
    std::vector<T>& array, std::vector<Int> fromIndexes, Int toIndexAsOfNow,
    std::source_location location = std::source_location::current()) {
  const Int toIndex = TvArrayMoveHelper::toIndex_From_AsOfNowToIndex(toIndexAsOfNow, fromIndexes);
  return moveFromIndexesToIndex(array, std::move(fromIndexes), toIndex, location);
}

}  // namespace tolvanite
