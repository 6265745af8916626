#include <Tolvanite/Matrix/RandomOuterLineWalk.h>

#include <array>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Matrix/MatrixSize.h>
#include <Tolvanite/Platform/SystemRandom.h>
#include <Tolvanite/Random/RandomInt.h>

namespace tolvanite {

using Direction = MatrixCoordinate::Direction;

namespace {

struct Corner {
  bool isTop;
  bool isLeft;
};

// In the order of the numbers that are drawn.
constexpr std::array<Corner, 4> corners{
    {{true, false}, {true, true}, {false, true}, {false, false}}};

}  // namespace

RandomOuterLineWalk::RandomOuterLineWalk(Int width, Int height)
    : width_(width),
      height_(height),
      maxX_(checkedSubtract(width, Int{1})),
      maxY_(checkedSubtract(height, Int{1})),
      horizontalOnlyOnRight_(systemRandom().uniform(2) == 0) {
  beginLine();
}

bool RandomOuterLineWalk::pull(MatrixCoordinate& coordinate) {
  if (current_.isNone()) return false;
  coordinate = *current_;
  current_ = coordinate.coordinateTo(direction_, 1, MatrixSize(width_, height_));
  if (current_.isNone() || isBehindLine(*current_)) {
    if (maxY_ >= minY_ && maxX_ >= minX_) {
      beginLine();
    } else {
      current_.reset();
    }
  }
  return true;
}

// Draws a corner and one of its two outer lines, which is taken off the rectangle at once.
void RandomOuterLineWalk::beginLine() {
  const Corner corner = corners.at(static_cast<std::size_t>(RandomInt::random(3)));
  const bool coinIsZero = systemRandom().uniform(2) == 0;
  current_ = MatrixCoordinate(corner.isLeft ? minX_ : maxX_, corner.isTop ? maxY_ : minY_);
  const bool isVertical = coinIsZero && (corner.isLeft || !horizontalOnlyOnRight_);
  if (isVertical) {
    direction_ = corner.isTop ? Direction::down : Direction::up;
    corner.isLeft ? ++minX_ : --maxX_;
  } else {
    direction_ = corner.isLeft ? Direction::right : Direction::left;
    corner.isTop ? --maxY_ : ++minY_;
  }
}

bool RandomOuterLineWalk::isBehindLine(MatrixCoordinate coordinate) const {
  switch (const Direction::Value heading = direction_; heading) {
    case Direction::up:
      return coordinate.y == maxY_ + 1;
    case Direction::left:
      return coordinate.x == minX_ - 1;
    case Direction::down:
      return coordinate.y == minY_ - 1;
    case Direction::right:
      return coordinate.x == maxX_ + 1;
  }
  return true;
}

}  // namespace tolvanite
