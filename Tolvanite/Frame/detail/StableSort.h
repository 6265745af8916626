// The one sort for blocks that a host hands in, which may be no strict order or throw: it stays
// within bounds and ends whatever the block answers, where std::sort and std::stable_sort may not.
//
//   tolvanite::detail::stableSort(names, [](const auto& a, const auto& b) { return a > b; });
//
// It is a natural merge sort: runs that stand in order, or in exactly the reversed order, are used
// as they are, short ones are filled up by insertion, and neighbours are merged in the nearly
// optimal order of the powersort rule (Munro and Wild, "Nearly-Optimal Mergesorts", 2018).
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <iterator>
#include <ranges>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>

namespace tolvanite::detail {

template <std::random_access_iterator Iterator, typename Before>
class StableSorter {
  using T = std::iter_value_t<Iterator>;
  using Offset = std::iter_difference_t<Iterator>;

  struct Run {
    Iterator first;
    Iterator last;
    int power = 0;  // of the boundary to the next run
  };

  // Elements on their way out of the buffer into the gap that they left in the array. The number of
  // elements in the buffer always equals the length of the gap, so that the destructor makes the
  // array whole again, at the end of a merge as well as when the block throws.
  struct ForwardGap {
    Iterator gap;
    T* next;
    T* last;
    ~ForwardGap() { std::move(next, last, gap); }
  };
  struct BackwardGap {
    Iterator gapEnd;
    T* first;
    T* next;  // one past the next element
    ~BackwardGap() { std::move_backward(first, next, gapEnd); }
  };

 public:
  StableSorter(Iterator first, Iterator last, Before& before)
      : first_(first), last_(last), before_(before) {}

  void sort() {
    if (last_ - first_ < 2) return;
    Run current = nextRun(first_);
    while (current.last != last_) {
      const Run next = nextRun(current.last);
      const int power = boundaryPower(current, next);
      while (pendingCount_ > 0 && pending_[pendingCount_ - 1].power > power) {
        current = merged(pending_[--pendingCount_], current);
      }
      current.power = power;
      pending_[pendingCount_++] = current;
      current = next;
    }
    while (pendingCount_ > 0) current = merged(pending_[--pendingCount_], current);
  }

 private:
  static constexpr Offset minimalRun = 24;
  // Below this length a merge is not worth the search for the parts that can stay.
  static constexpr Offset minimalTrim = 64;

  bool before(const T& a, const T& b) { return static_cast<bool>(std::invoke(before_, a, b)); }

  // The run that begins at `first`: the longest that stands in order already, at least
  // `minimalRun` elements as far as there are so many.
  Run nextRun(Iterator first) {
    Iterator end = first + 1;
    if (end == last_) return {first, end};
    if (before(*end, *first)) {
      do ++end;
      while (end != last_ && before(*end, *(end - 1)));
      std::reverse(first, end);
    } else {
      do ++end;
      while (end != last_ && !before(*end, *(end - 1)));
    }
    const Iterator filled = last_ - first <= minimalRun ? last_ : first + minimalRun;
    for (; end < filled; ++end) insertIntoRun(first, end);
    return {first, end};
  }

  // The place is looked up before anything is moved: a block that throws finds the array whole.
  void insertIntoRun(Iterator first, Iterator element) {
    const Iterator place = firstAfter(first, element, *element);
    if (place == element) return;
    T value = std::move(*element);
    std::move_backward(place, element, element + 1);
    *place = std::move(value);
  }

  // The first of the run that `value` is ordered before.
  Iterator firstAfter(Iterator first, Iterator last, const T& value) {
    while (first != last) {
      const Iterator mid = first + (last - first) / 2;
      if (before(value, *mid)) {
        last = mid;
      } else {
        first = mid + 1;
      }
    }
    return first;
  }

  // The first of the run that is not ordered before `value`.
  Iterator firstNotBefore(Iterator first, Iterator last, const T& value) {
    while (first != last) {
      const Iterator mid = first + (last - first) / 2;
      if (before(*mid, value)) {
        first = mid + 1;
      } else {
        last = mid;
      }
    }
    return first;
  }

  // The depth of the boundary of two neighbouring runs in the ideal merge tree: the first binary
  // digit in which the middles of the runs, as fractions of the whole, differ. The powers of the
  // pending runs grow strictly, so there are never more of them than an offset has bits.
  int boundaryPower(const Run& left, const Run& right) const {
    const auto count = static_cast<std::size_t>(last_ - first_);
    auto a = static_cast<std::size_t>((left.first - first_) + (left.last - first_));
    auto b = static_cast<std::size_t>((right.first - first_) + (right.last - first_));
    int power = 1;
    for (;; ++power) {
      if (a >= count) {
        a -= count;
        b -= count;
      } else if (b >= count) {
        return power;
      }
      a *= 2;
      b *= 2;
    }
  }

  Run merged(const Run& left, const Run& right) {
    const Run whole{left.first, right.last};
    const Iterator middle = left.last;
    if (!before(*middle, *(middle - 1))) return whole;
    Iterator begin = left.first;
    Iterator end = right.last;
    if (end - begin >= minimalTrim) {
      begin = firstAfter(begin, middle, *middle);
      if (begin == middle) return whole;
      end = firstNotBefore(middle, end, *(middle - 1));
    }
    if (middle - begin <= end - middle) {
      mergeForward(begin, middle, end);
    } else {
      mergeBackward(begin, middle, end);
    }
    return whole;
  }

  T* moveToBuffer(Iterator first, Iterator last) {
    buffer_.clear();
    // No later merge needs more than half of the array; allocating that at once avoids growing.
    if (buffer_.capacity() == 0) buffer_.reserve(static_cast<std::size_t>((last_ - first_) / 2));
    buffer_.insert(buffer_.end(), std::make_move_iterator(first), std::make_move_iterator(last));
    return buffer_.data();
  }

  void mergeForward(Iterator left, Iterator right, Iterator end) {
    T* const begin = moveToBuffer(left, right);
    ForwardGap rest{left, begin, begin + buffer_.size()};
    while (rest.next != rest.last && right != end) {
      if (before(*right, *rest.next)) {
        *rest.gap = std::move(*right++);
      } else {
        *rest.gap = std::move(*rest.next++);
      }
      ++rest.gap;
    }
  }

  void mergeBackward(Iterator begin, Iterator middle, Iterator end) {
    T* const first = moveToBuffer(middle, end);
    BackwardGap rest{end, first, first + buffer_.size()};
    Iterator left = middle;  // one past the next element
    while (rest.next != rest.first && left != begin) {
      if (before(*(rest.next - 1), *(left - 1))) {
        *(rest.gapEnd - 1) = std::move(*(left - 1));
        --left;
      } else {
        *(rest.gapEnd - 1) = std::move(*(rest.next - 1));
        --rest.next;
      }
      --rest.gapEnd;
    }
  }

  Iterator first_;
  Iterator last_;
  Before& before_;
  std::vector<T> buffer_;
  std::array<Run, 8 * sizeof(Offset) + 2> pending_;
  std::size_t pendingCount_ = 0;
};

/// Sorts the elements; those of which neither is ordered before the other keep their order. Linear
/// on an array that consists of few runs, else n log n, with a buffer of half the array. The moves
/// of `T` must not throw; when the block does, the array holds the same elements in some order.
template <IndexableArray A, typename Before>
  requires std::permutable<std::ranges::iterator_t<A>> &&
           OrdersBefore<Before, const ElementOf<A>&, const ElementOf<A>&>
void stableSort(A&& array, Before&& isOrderedBefore) {
  const auto first = std::ranges::begin(array);
  const auto last = first + std::ranges::distance(array);
  using Block = std::remove_reference_t<Before>;
  StableSorter<std::ranges::iterator_t<A>, Block>(first, last, isOrderedBefore).sort();
}

}  // namespace tolvanite::detail
