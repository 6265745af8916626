#include <Tolvanite/Matrix/MatrixRect.h>

#include <algorithm>

#include <fmt/format.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Matrix/MatrixSize.h>

namespace tolvanite {

namespace {

Int endOf(Int start, Int side, std::source_location location) {
  return checkedSubtract(checkedAdd(start, side, location), Int{1}, location);
}

// Every change ends here: sides that cannot be told are fatal at once, not when they are asked for.
void requireSides(const MatrixRect& rect, std::source_location location) {
  static_cast<void>(rect.size(location));
}

}  // namespace

MatrixRect::MatrixRect(MatrixCoordinate coordinate, const MatrixSize& size,
                       std::source_location location)
    : startColumn(coordinate.x),
      endColumn(endOf(coordinate.x, size.width, location)),
      startRow(coordinate.y),
      endRow(endOf(coordinate.y, size.height, location)) {}

MatrixRect MatrixRect::ofPosition(Int x, Int y, Int width, Int height,
                                  std::source_location location) {
  return {MatrixCoordinate(x, y), MatrixSize(width, height), location};
}

MatrixRect MatrixRect::ofEnds(Int startColumn, Int endColumn, Int startRow, Int endRow,
                              std::source_location location) {
  MatrixRect rect;
  rect.startColumn = startColumn;
  rect.endColumn = endColumn;
  rect.startRow = startRow;
  rect.endRow = endRow;
  requireSides(rect, location);
  return rect;
}

MatrixSize MatrixRect::size(std::source_location location) const {
  return {width(location), height(location)};
}

void MatrixRect::moveBy(Int dx, Int dy, std::source_location location) {
  startColumn = checkedAdd(startColumn, dx, location);
  endColumn = checkedAdd(endColumn, dx, location);
  startRow = checkedAdd(startRow, dy, location);
  endRow = checkedAdd(endRow, dy, location);
}

MatrixRect MatrixRect::rectMovedBy(Int dx, Int dy, std::source_location location) const {
  MatrixRect result = *this;
  result.moveBy(dx, dy, location);
  return result;
}

void MatrixRect::formUnion(const MatrixRect& other, std::source_location location) {
  startColumn = std::min(startColumn, other.startColumn);
  endColumn = std::max(endColumn, other.endColumn);
  startRow = std::min(startRow, other.startRow);
  endRow = std::max(endRow, other.endRow);
  requireSides(*this, location);
}

void MatrixRect::insetBy(Int dx, Int dy, std::source_location location) {
  if (dx == 0 && dy == 0) return;
  startColumn = checkedAdd(startColumn, dx, location);
  endColumn = checkedSubtract(endColumn, dx, location);
  startRow = checkedAdd(startRow, dy, location);
  endRow = checkedSubtract(endRow, dy, location);
  requireSides(*this, location);
}

MatrixRect MatrixRect::rectInsetedBy(Int dx, Int dy, std::source_location location) const {
  MatrixRect result = *this;
  result.insetBy(dx, dy, location);
  return result;
}

std::string MatrixRect::description() const {
  return fmt::format(
      "MatrixRect({} x {}: startColumn: {}, endColumn: {}, startRow: {}, endRow: {}))", width(),
      height(), startColumn, endColumn, startRow, endRow);
}

}  // namespace tolvanite
