// All cells of a size, row after row, each from its first column. Made by
// `MatrixSize::coordinateIterator`.
#pragma once

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/detail/PulledRange.h>

namespace tolvanite {

class OrderedWalk : public detail::PulledRange<OrderedWalk, MatrixCoordinate> {
 public:
  /// Over that many columns and rows; no cell if one of them is below 1.
  constexpr OrderedWalk(Int width, Int height) : width_(width), height_(width < 1 ? 0 : height) {}

  /// The next coordinate; absent behind the last.
  constexpr Optional<MatrixCoordinate> next() {
    if (y_ >= height_) return {};
    const MatrixCoordinate current(x_, y_);
    if (++x_ == width_) {
      x_ = 0;
      ++y_;
    }
    return current;
  }

 private:
  Int width_;
  Int height_;
  Int x_ = 0;
  Int y_ = 0;
};

}  // namespace tolvanite
