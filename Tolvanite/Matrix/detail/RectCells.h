// The cells of a closed range of columns and rows: rows outside, columns inside.
#pragma once

#include <cstddef>
#include <iterator>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/detail/PulledRange.h>

namespace tolvanite::detail {

/// A walk over the cells; of some bounds without cells, if an end lies before its start, none.
template <typename Coordinate>
class RectWalk : public PulledRange<RectWalk<Coordinate>, Coordinate> {
 public:
  constexpr RectWalk(Int startColumn, Int endColumn, Int startRow, Int endRow)
      : x_(startColumn),
        y_(startRow),
        startColumn_(startColumn),
        endColumn_(endColumn),
        endRow_(endRow),
        done_(endColumn < startColumn || endRow < startRow) {}

  /// Sets `coordinate` to the next one; false behind the last.
  constexpr bool pull(Coordinate& coordinate) {
    if (done_) return false;
    coordinate = {x_, y_};
    // Compared before it is raised: a rect may end at the highest Int.
    if (x_ != endColumn_) {
      ++x_;
    } else if (y_ != endRow_) {
      x_ = startColumn_;
      ++y_;
    } else {
      done_ = true;
    }
    return true;
  }

 private:
  Int x_;
  Int y_;
  Int startColumn_;
  Int endColumn_;
  Int endRow_;
  bool done_;
};

/// The same walk as an iterator that carries its state itself.
template <typename Coordinate>
class RectIterator {
 public:
  using iterator_concept = std::forward_iterator_tag;
  using iterator_category = std::input_iterator_tag;
  using value_type = Coordinate;
  using difference_type = std::ptrdiff_t;

  /// The end of any rect.
  constexpr RectIterator() = default;
  constexpr explicit RectIterator(RectWalk<Coordinate> walk)
      : walk_(walk), isAtEnd_(!walk_.pull(current_)) {}

  constexpr Coordinate operator*() const { return current_; }
  constexpr RectIterator& operator++() {
    isAtEnd_ = !walk_.pull(current_);
    return *this;
  }
  constexpr RectIterator operator++(int) {
    const RectIterator before = *this;
    ++*this;
    return before;
  }
  friend constexpr bool operator==(const RectIterator& a, const RectIterator& b) {
    return a.isAtEnd_ == b.isAtEnd_ && (a.isAtEnd_ || a.current_ == b.current_);
  }

 private:
  RectWalk<Coordinate> walk_{0, -1, 0, -1};
  Coordinate current_;
  bool isAtEnd_ = true;
};

}  // namespace tolvanite::detail
