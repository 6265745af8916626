// Which elements a removal at several indexes takes, found before anything is removed, so that the
// array can be closed up in one pass instead of one shift for each element.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <source_location>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite::detail {

/// The plan of a removal from the highest index down to the lowest.
class RemovalPlan {
 public:
  struct Hole {
    Int first;
    Int end;
  };

  /// `sortedIndexes` stand in ascending order. A repeated index takes what is at that place once
  /// the elements before it in the order of removal are gone. An index that is out of range when
  /// its turn comes is fatal. Linear in the count of indexes.
  RemovalPlan(const std::vector<Int>& sortedIndexes, Int count, std::source_location location) {
    positions_.reserve(sortedIndexes.size());
    auto next = sortedIndexes.rbegin();
    while (next != sortedIndexes.rend()) {
      const Int index = *next;
      Int position = index;
      for (; next != sortedIndexes.rend() && *next == index; ++next) {
        while (!holes_.empty() && holes_.back().first == position) {
          position = holes_.back().end;
          holes_.pop_back();
        }
        if (index < 0 || position >= count) {
          fatalIndexOutOfRange(index, count - removedCount(), location);
        }
        positions_.push_back(position++);
      }
      addHole({index, position});
    }
    std::ranges::reverse(holes_);
  }

  /// Where the removed elements stand in the array as it is, in the order of their removal.
  const std::vector<Int>& positions() const { return positions_; }
  /// The same positions as ranges, in ascending order; no two of them touch.
  const std::vector<Hole>& holes() const { return holes_; }
  Int removedCount() const { return static_cast<Int>(positions_.size()); }

 private:
  // Until the end of the construction the holes stand in descending order.
  void addHole(Hole hole) {
    if (!holes_.empty() && holes_.back().first == hole.end) {
      holes_.back().first = hole.first;
    } else {
      holes_.push_back(hole);
    }
  }

  std::vector<Int> positions_;
  std::vector<Hole> holes_;
};

template <typename T>
auto iteratorAt(std::vector<T>& array, Int index) {
  return array.begin() + static_cast<std::ptrdiff_t>(index);
}

/// Erases what stands in the holes, which are ascending and apart, in one pass.
template <typename T>
void closeHoles(std::vector<T>& array, const std::vector<RemovalPlan::Hole>& holes) {
  if (holes.empty()) return;
  auto gap = iteratorAt(array, holes.front().first);
  for (std::size_t i = 0; i < holes.size(); ++i) {
    const Int end = i + 1 < holes.size() ? holes[i + 1].first : countOf(array);
    gap = std::move(iteratorAt(array, holes[i].end), iteratorAt(array, end), gap);
  }
  array.erase(gap, array.end());
}

/// Erases the elements for which `isRemoved` answers true, in one pass, once it has answered for
/// all of them: it may look at the array, and when it throws, nothing is removed.
template <typename T, typename IsRemoved>
void removeWhere(std::vector<T>& array, IsRemoved&& isRemoved) {
  std::vector<RemovalPlan::Hole> holes;
  for (Int i = 0; i < countOf(array); ++i) {
    if (!isRemoved(elementAt(std::as_const(array), i))) continue;
    if (!holes.empty() && holes.back().end == i) {
      ++holes.back().end;
    } else {
      holes.push_back({i, i + 1});
    }
  }
  closeHoles(array, holes);
}

}  // namespace tolvanite::detail
