// All cells of a size, row after row, each from its first column. Made by
// `MatrixSize::coordinateIterator`.
#pragma once

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/detail/PulledRange.h>

namespace tolvanite {

class OrderedWalk : public detail::PulledRange<OrderedWalk, MatrixCoordinate> {
 public:
  /// Over that many columns and rows; no cell if one of them is below 1.
  constexpr OrderedWalk(Int width, Int height) : width_(width), height_(height) {
    if (width < 1 || height < 1) width_ = height_ = x_ = 0;
  }

  /// Sets `coordinate` to the next one; false behind the last.
  constexpr bool pull(MatrixCoordinate& coordinate) {
    if (x_ < width_ - 1) [[likely]] {
      ++x_;
    } else {
      if (y_ >= height_ - 1) return false;
      x_ = 0;
      ++y_;
    }
    coordinate = {x_, y_};
    return true;
  }

 private:
  Int width_;
  Int height_;
  // What was pulled last, and before that the cell in front of the first one.
  Int x_ = -1;
  Int y_ = 0;
};

}  // namespace tolvanite
