// What the sorted collections and views do with an array of elements and a sort block. All of it
// stays in bounds and ends whatever the block answers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <ranges>
#include <span>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/Frame/SortedInsertion.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Frame/detail/StableSort.h>

namespace tolvanite::detail {

template <typename T>
using OrderBlock = Block<bool(const T&, const T&)>;

/// Sorts in place; ties keep their order.
template <typename T>
void sortStably(ElementStore<T>& array, const OrderBlock<T>& isOrderedBefore) {
  stableSort(array.boxesToReorder(), [&](const BoxHeader* a, const BoxHeader* b) {
    return isOrderedBefore(static_cast<const Box<T>*>(a)->value,
                           static_cast<const Box<T>*>(b)->value);
  });
}

/// An array as it stands without one of its elements.
template <typename T>
class ArrayWithoutOne {
 public:
  ArrayWithoutOne(const ElementStore<T>& array, Int leftOut) : array_(array), leftOut_(leftOut) {}

  /// The place before all elements that `value` ties with.
  Int insertionIndex(const OrderBlock<T>& isOrderedBefore, const T& value) const {
    return insertionIndexForSortedBy(std::views::iota(Int{0}, array_.count() - 1) |
                                         std::views::transform([this](Int i) -> const T& {
                                           return array_.boxAt(i < leftOut_ ? i : i + 1)->value;
                                         }),
                                     isOrderedBefore, value);
  }

 private:
  const ElementStore<T>& array_;
  Int leftOut_;
};

/// The first index from `start` on whose element is not ordered before `value`, found by doubling
/// steps and halving: quick when it is near.
template <typename T>
Int insertionIndexFrom(const ElementStore<T>& array, Int start,
                       const OrderBlock<T>& isOrderedBefore, const T& value) {
  const Int count = array.count();
  Int low = start;
  Int step = 1;
  while (low < count &&
         isOrderedBefore(array.boxAt(std::min(low + step, count) - 1)->value, value)) {
    low = std::min(low + step, count);
    step *= 2;
  }
  Int high = std::min(low + step, count);
  while (low < high) {
    const Int mid = low + (high - low) / 2;
    if (isOrderedBefore(array.boxAt(mid)->value, value)) {
      low = mid + 1;
    } else {
      high = mid;
    }
  }
  return low;
}

/// Inserts elements that stand in order into an array that stands in order, in one pass, with the
/// result of inserting one after the other, each before its ties. `indexes` are the places at
/// the moment of each insertion, `arranged` the elements in their final order, `places` their final
/// places.
template <typename T>
struct OrderedInsertion {
  OrderedInsertion(ElementStore<T>& array, const ElementStore<T>& sorted,
                   const OrderBlock<T>& isOrderedBefore) {
    const Int count = sorted.count();
    std::vector<Int> gaps;
    gaps.reserve(sorted.size());
    indexes.reserve(sorted.size());
    arranged = sorted;
    const auto boxes = arranged.boxesToReorder();
    Int gap = 0;
    Int before = 0;  // how many of the new elements stand before the current one
    Int tiesFrom = 0;
    for (Int i = 0; i < count; ++i) {
      const T& value = sorted.boxAt(i)->value;
      gap = insertionIndexFrom(array, gap, isOrderedBefore, value);
      if (i > 0 && isOrderedBefore(sorted.boxAt(i - 1)->value, value)) {
        // Each of a run of ties goes before the one inserted just now.
        std::reverse(boxes.begin() + tiesFrom, boxes.begin() + i);
        tiesFrom = i;
        before = i;
      }
      gaps.push_back(gap);
      indexes.push_back(gap + before);
    }
    std::reverse(boxes.begin() + tiesFrom, boxes.end());
    places = std::move(gaps);
    for (Int i = 0; i < count; ++i) places[static_cast<std::size_t>(i)] += i;
    array.insertEach(places, arranged);
  }

  std::vector<Int> indexes;
  ElementStore<T> arranged;
  std::vector<Int> places;
};

}  // namespace tolvanite::detail
