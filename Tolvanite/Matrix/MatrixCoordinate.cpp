#include <Tolvanite/Matrix/MatrixCoordinate.h>

#include <array>
#include <string_view>

#include <fmt/format.h>

#include <Tolvanite/Matrix/MatrixSize.h>

namespace tolvanite {

using Moved = Optional<MatrixCoordinate>;
using Within = Optional<MatrixSize>;

std::span<const MatrixCoordinate::Direction> MatrixCoordinate::Direction::all() {
  static constexpr std::array<Direction, 4> directions{up, left, down, right};
  return directions;
}

std::string MatrixCoordinate::Direction::description() const {
  static constexpr std::array<std::string_view, 4> names{"up", "left", "down", "right"};
  return std::string(names.at(value_));
}

Int MatrixCoordinate::position(const MatrixSize& matrixSize, std::source_location location) const {
  return matrixSize.indexForCoordinate(*this, location);
}

Moved MatrixCoordinate::coordinateMovedBy(Int dx, Int dy, std::source_location location) const {
  return coordinateMovedBy(dx, dy, {}, {}, location);
}

Moved MatrixCoordinate::coordinateMovedBy(Int dx, Int dy, const Within& matrixSize,
                                          const Optional<Int>& totalCount,
                                          std::source_location location) const {
  const MatrixCoordinate moved = coordinateMovedByTo(ByDxDy{dx, dy}, location);
  if (moved.x < 0 || moved.y < 0) return {};
  if (matrixSize.isNone()) return moved;
  if (moved.x >= matrixSize->width || moved.y >= matrixSize->height) return {};
  if (totalCount.isSome() && moved.position(*matrixSize, location) >= *totalCount) return {};
  return moved;
}

Moved MatrixCoordinate::coordinateTo(Direction direction, Int delta,
                                     std::source_location location) const {
  return coordinateTo(direction, delta, {}, location);
}

Moved MatrixCoordinate::coordinateTo(Direction direction, Int delta, const Within& matrixSize,
                                     std::source_location location) const {
  const bool isBackward = direction == Direction::left || direction == Direction::down;
  const bool isVertical = direction == Direction::up || direction == Direction::down;
  const Int distance = isBackward ? checkedSubtract(Int{0}, delta, location) : delta;
  return isVertical ? coordinateMovedBy(0, distance, matrixSize, {}, location)
                    : coordinateMovedBy(distance, 0, matrixSize, {}, location);
}

Moved MatrixCoordinate::up(Int delta, std::source_location location) const {
  return coordinateTo(Direction::up, delta, location);
}
Moved MatrixCoordinate::up(Int delta, const Within& matrixSize,
                           std::source_location location) const {
  return coordinateTo(Direction::up, delta, matrixSize, location);
}
Moved MatrixCoordinate::left(Int delta, std::source_location location) const {
  return coordinateTo(Direction::left, delta, location);
}
Moved MatrixCoordinate::left(Int delta, const Within& matrixSize,
                             std::source_location location) const {
  return coordinateTo(Direction::left, delta, matrixSize, location);
}
Moved MatrixCoordinate::down(Int delta, std::source_location location) const {
  return coordinateTo(Direction::down, delta, location);
}
Moved MatrixCoordinate::down(Int delta, const Within& matrixSize,
                             std::source_location location) const {
  return coordinateTo(Direction::down, delta, matrixSize, location);
}
Moved MatrixCoordinate::right(Int delta, std::source_location location) const {
  return coordinateTo(Direction::right, delta, location);
}
Moved MatrixCoordinate::right(Int delta, const Within& matrixSize,
                              std::source_location location) const {
  return coordinateTo(Direction::right, delta, matrixSize, location);
}

std::string MatrixCoordinate::description() const {
  return fmt::format("MatrixCoordinate({}, {})", x, y);
}

}  // namespace tolvanite
