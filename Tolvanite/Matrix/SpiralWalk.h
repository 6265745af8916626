// All cells of a size along its border and then further and further in, from (0, 0). Made by
// `MatrixSize::coordinateIterator_spiral`. Clockwise and counter-clockwise hold for a y that grows
// downward, as on a screen, deliberately the other way round than `MatrixCoordinate::up`:
//
//   clockwise        counter-clockwise
//   A B C            A H G
//   H I D            B I F
//   G F E            C D E
#pragma once

#include <cstdint>
#include <source_location>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/detail/PulledRange.h>

namespace tolvanite {

class SpiralWalk : public detail::PulledRange<SpiralWalk, MatrixCoordinate> {
 public:
  /// Over that many columns and rows; no cell if one of them is below 1. A single row or column is
  /// walked along in both senses. More cells than an Int counts are fatal.
  constexpr SpiralWalk(Int width, Int height, bool counterClockwise,
                       std::source_location location = std::source_location::current())
      : right_(width < 1 ? 0 : width - 1),
        bottom_(height < 1 ? 0 : height - 1),
        isClockwise_(!counterClockwise),
        heading_(width != 1 && (height == 1 || !counterClockwise) ? Heading::right
                                                                  : Heading::down) {
    isDone_ = width < 1 || height < 1;
    if (!isDone_) isLast_ = checkedMultiply(width, height, location) == 1;
  }

  /// Sets `coordinate` to the next one; false behind the last.
  constexpr bool pull(MatrixCoordinate& coordinate) {
    if (isDone_) return false;
    coordinate = {x_, y_};
    if (isLast_) {
      isDone_ = true;
    } else {
      step();
    }
    return true;
  }

 private:
  enum class Heading : std::uint8_t { right, down, left, up };

  // One cell on, and at the end of the line a turn. The line that was walked is then left to the
  // bound behind it; if nothing lies ahead within the bounds, the cell just reached is the last.
  constexpr void step() {
    switch (heading_) {
      case Heading::right:
        if (++x_ == right_) turnFromRight();
        break;
      case Heading::down:
        if (++y_ == bottom_) turnFromDown();
        break;
      case Heading::left:
        if (--x_ == left_) turnFromLeft();
        break;
      case Heading::up:
        if (--y_ == top_) turnFromUp();
        break;
    }
  }

  constexpr void turnFromRight() {
    if (isClockwise_) {
      ++top_;
      head(Heading::down);
    } else {
      --bottom_;
      head(Heading::up);
    }
  }
  constexpr void turnFromDown() {
    if (isClockwise_) {
      --right_;
      head(Heading::left);
    } else {
      ++left_;
      head(Heading::right);
    }
  }
  constexpr void turnFromLeft() {
    if (isClockwise_) {
      --bottom_;
      head(Heading::up);
    } else {
      ++top_;
      head(Heading::down);
    }
  }
  constexpr void turnFromUp() {
    if (isClockwise_) {
      ++left_;
      head(Heading::right);
    } else {
      --right_;
      head(Heading::left);
    }
  }

  constexpr void head(Heading heading) {
    heading_ = heading;
    switch (heading) {
      case Heading::right:
        isLast_ = x_ + 1 > right_;
        break;
      case Heading::down:
        isLast_ = y_ + 1 > bottom_;
        break;
      case Heading::left:
        isLast_ = x_ - 1 < left_;
        break;
      case Heading::up:
        isLast_ = y_ - 1 < top_;
        break;
    }
  }

  Int x_ = 0;
  Int y_ = 0;
  Int left_ = 0;
  Int top_ = 0;
  Int right_;
  Int bottom_;
  bool isClockwise_;
  bool isLast_ = false;
  bool isDone_ = false;
  Heading heading_;
};

}  // namespace tolvanite
