// A half-open range of indexes, and how lists of such ranges are made and joined.
//
//   tolvanite::makeRangesWithTotalCount(std::vector<Int>{0, 2, 5}, 6);   // [0..<2, 2..<5, 5..<6]
//   tolvanite::IndexRange::mergeAdjacentRanges({{0, 2}, {2, 4}, {5, 6}});  // [0..<4, 5..<6]
#pragma once

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <ostream>
#include <source_location>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// The indexes from `lowerBound` up to, but without, `upperBound`.
class IndexRange {
 public:
  /// A lower bound above the upper one is fatal.
  constexpr IndexRange(Int lowerBound, Int upperBound,
                       std::source_location location = std::source_location::current())
      : lowerBound_(lowerBound), upperBound_(upperBound) {
    if (lowerBound > upperBound)
      fatalFailure("Range ends before it starts: " + description(), location);
  }

  /// The first index, unless the range is empty.
  constexpr Int lowerBound() const { return lowerBound_; }
  /// The index behind the last one.
  constexpr Int upperBound() const { return upperBound_; }
  /// The number of indexes. Fatal if an Int is too small for it.
  constexpr Int count() const { return checkedSubtract(upperBound_, lowerBound_); }
  /// Whether there is no index.
  constexpr bool isEmpty() const { return lowerBound_ == upperBound_; }
  /// Whether `index` is one of them.
  constexpr bool contains(Int index) const { return lowerBound_ <= index && index < upperBound_; }

  /// "0..<2".
  std::string description() const {
    return std::to_string(lowerBound_) + "..<" + std::to_string(upperBound_);
  }

  /// Joins each range with its successor in the list if it ends where that one starts. The list is
  /// taken in the order given: ranges that overlap, or touch out of order, stay apart.
  static std::vector<IndexRange> mergeAdjacentRanges(const std::vector<IndexRange>& ranges) {
    std::vector<IndexRange> result;
    for (const IndexRange& range : ranges) {
      if (!result.empty() && result.back().upperBound_ == range.lowerBound_) {
        result.back().upperBound_ = range.upperBound_;
      } else {
        result.push_back(range);
      }
    }
    return result;
  }

  friend constexpr bool operator==(const IndexRange&, const IndexRange&) = default;
  /// By the lower bounds, then by the upper ones.
  friend constexpr auto operator<=>(const IndexRange&, const IndexRange&) = default;
  friend std::ostream& operator<<(std::ostream& out, const IndexRange& range) {
    return out << range.description();
  }

 private:
  Int lowerBound_;
  Int upperBound_;
};

/// The ranges that start at the given indexes, each up to the start of the next, the last one up to
/// `total`. A start above the end of its range is fatal.
template <std::ranges::forward_range Starts>
  requires std::integral<ElementOf<Starts>>
std::vector<IndexRange> makeRangesWithTotalCount(
    Starts&& starts, Int total, std::source_location location = std::source_location::current()) {
  std::vector<IndexRange> result;
  const auto end = std::ranges::end(starts);
  for (auto start = std::ranges::begin(starts); start != end;) {
    const Int lowerBound = static_cast<Int>(*start);
    const Int upperBound = ++start == end ? total : static_cast<Int>(*start);
    result.emplace_back(lowerBound, upperBound, location);
  }
  return result;
}

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::IndexRange> {
  std::size_t operator()(const tolvanite::IndexRange& range) const noexcept {
    const std::hash<tolvanite::Int> ofBound;
    return ofBound(range.lowerBound()) * 31 + ofBound(range.upperBound());
  }
};
