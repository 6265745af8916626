// What the sorted collections and views do with an array of elements and a sort block. All of it
// stays in bounds and ends whatever the block answers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <ranges>
#include <source_location>
#include <span>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/NamedSortBlock.h>
#include <Tolvanite/Frame/SortedInsertion.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Frame/detail/StableSort.h>

namespace tolvanite::detail {

template <typename T>
using OrderBlock = Block<bool(const T&, const T&)>;

/// Stops the process when a sort order has no block.
template <typename T>
void requireBlock(const NamedSortBlock<T>& order,
                  std::source_location location = std::source_location::current()) {
  if (!order.sortBlock)
    fatalFailure("The sort order \"" + order.code + "\" has no block", location);
}

/// Sorts in place; ties keep their order.
template <typename T>
void sortStably(ElementStore<T>& array, const OrderBlock<T>& isOrderedBefore) {
  stableSort(array.boxesToReorder(), [&](const BoxHeader* a, const BoxHeader* b) {
    return isOrderedBefore(static_cast<const Box<T>*>(a)->value,
                           static_cast<const Box<T>*>(b)->value);
  });
}

/// Where an element goes among those that the sort block does not separate it from.
enum class AmongTies {
  first,         ///< Before all of them.
  asStableSort,  ///< Where a stable sort of the array with the element in its old place puts it.
};

/// An array as it stands without one of its elements.
template <typename T>
class ArrayWithoutOne {
 public:
  ArrayWithoutOne(const ElementStore<T>& array, Int leftOut) : array_(array), leftOut_(leftOut) {}

  /// The place of `value`, which stood where the element is left out.
  Int landing(const OrderBlock<T>& isOrderedBefore, const T& value, AmongTies amongTies) const {
    const auto others = std::views::iota(Int{0}, array_.count() - 1) |
                        std::views::transform([this](Int i) -> const T& {
                          return array_.boxAt(i < leftOut_ ? i : i + 1)->value;
                        });
    const Int first = insertionIndexForSortedBy(others, isOrderedBefore, value);
    if (amongTies == AmongTies::first || first >= leftOut_) return first;
    // On its way forward it stays behind those that stood before it.
    const Int behind = insertionIndexForSortedBy(
        others, [&](const T& other, const T& it) { return !isOrderedBefore(it, other); }, value);
    return std::clamp(behind, first, leftOut_);
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

/// Inserts elements into an array that stands in order, in one pass, with the result of inserting
/// one after the other, each before its ties. `indexes` are the places at the moment of each
/// insertion, `arranged` the elements in their final order, `places` their final places. A batch
/// that is known to stand in order is not sorted again.
template <typename T>
struct OrderedInsertion {
  OrderedInsertion(ElementStore<T>& array, const ElementStore<T>& batch,
                   const OrderBlock<T>& isOrderedBefore, bool isBatchSorted)
      : indexes(batch.size()), earlier_(isBatchSorted ? 0 : batch.size() + 1) {
    const std::size_t count = batch.size();
    const auto value = [&](std::size_t i) -> const T& {
      return batch.boxAt(static_cast<Int>(i))->value;
    };
    // The order in which the elements come to stand: each of a run of ties goes before the ones
    // that were inserted before it.
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (!isBatchSorted && count > 0) {
      // A reversed block orders ties before each other, and so inserts each behind the ones before.
      const bool isReversed = isOrderedBefore(value(0), value(0));
      stableSort(std::span(order), [&](std::size_t a, std::size_t b) {
        return isReversed ? !isOrderedBefore(value(b), value(a))
                          : isOrderedBefore(value(a), value(b));
      });
    }
    std::vector<Int> gaps;
    gaps.reserve(count);
    Int gap = 0;
    for (std::size_t from = 0, to = 0; from < count; from = to) {
      do {
        gap = insertionIndexFrom(array, gap, isOrderedBefore, value(order[to]));
        indexes[order[to]] =
            gap + (isBatchSorted ? static_cast<Int>(from) : countOfEarlier(order[to]));
        gaps.push_back(gap);
        ++to;
      } while (to < count && !isOrderedBefore(value(order[to - 1]), value(order[to])));
      for (std::size_t i = from; i < to && !isBatchSorted; ++i) addEarlier(order[i]);
      std::reverse(order.begin() + static_cast<Int>(from), order.begin() + static_cast<Int>(to));
    }
    arranged.reserve(batch.count());
    for (const std::size_t i : order) arranged.append(batch.handleAt(static_cast<Int>(i)));
    places = std::move(gaps);
    for (std::size_t i = 0; i < count; ++i) places[i] += static_cast<Int>(i);
    array.insertEach(places, arranged);
  }

  std::vector<Int> indexes;
  ElementStore<T> arranged;
  std::vector<Int> places;

 private:
  // How many elements were added with a smaller number than `i`: a binary indexed tree.
  Int countOfEarlier(std::size_t i) const {
    Int count = 0;
    for (; i > 0; i &= i - 1) count += earlier_[i];
    return count;
  }
  void addEarlier(std::size_t i) {
    for (++i; i < earlier_.size(); i += i & (~i + 1)) ++earlier_[i];
  }

  std::vector<Int> earlier_;
};

}  // namespace tolvanite::detail
