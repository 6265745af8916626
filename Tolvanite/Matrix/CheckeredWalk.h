// All cells of a size in several sweeps, each of which takes every n-th cell of a row and begins
// one column further from row to row. Made by `MatrixSize::coordinateIterator_checkered`. The order
// of 8 columns, 3 rows and a step of 3, by letters and small letters and digits:
//
//   A a 1 B b 2 C c
//   3 D d 4 E e 5 F
//   f 6 G g 7 H h 8
#pragma once

#include <algorithm>
#include <source_location>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/detail/PulledRange.h>

namespace tolvanite {

class CheckeredWalk : public detail::PulledRange<CheckeredWalk, MatrixCoordinate> {
 public:
  /// Over that many columns and rows; no cell if one of them is below 1. A step beyond the width is
  /// the width; a step of 1 gives the ordered walk. A step of 0 is fatal, a division by zero, and a
  /// negative one is fatal too.
  constexpr CheckeredWalk(Int width, Int height, Int step,
                          std::source_location location = std::source_location::current())
      : width_(width), height_(height), sweeps_(std::min(step, width)), x_(width) {
    if (step == 0) fatalFailure("Division by zero: the step of a checkered walk is 0", location);
    if (step < 0) {
      fatalFailure("The step of a checkered walk is negative: " + textForm(step), location);
    }
    if (width < 1 || height < 1) width_ = height_ = sweeps_ = x_ = 0;
  }

  /// Sets `coordinate` to the next one; false behind the last.
  constexpr bool pull(MatrixCoordinate& coordinate) {
    if (sweeps_ < width_ - x_) {
      x_ += sweeps_;
    } else if (!beginRow()) {
      return false;
    }
    coordinate = {x_, y_};
    return true;
  }

 private:
  // The first cell of the next row, or of the next sweep behind the last row. `rowStart_` is the
  // column where the row behind begins: (sweep + y) % sweeps.
  constexpr bool beginRow() {
    if (y_ < height_ - 1) {
      ++y_;
    } else {
      if (sweep_ >= sweeps_ - 1) return false;
      y_ = 0;
      rowStart_ = ++sweep_;
    }
    x_ = rowStart_;
    if (++rowStart_ == sweeps_) rowStart_ = 0;
    return true;
  }

  Int width_;
  Int height_;
  Int sweeps_;
  // What was pulled last, and before that the end of a row in front of the first one.
  Int x_;
  Int y_ = -1;
  Int sweep_ = 0;
  Int rowStart_ = 0;
};

}  // namespace tolvanite
