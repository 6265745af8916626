#include <Tolvanite/Matrix/MatrixCoordinateFactory.h>

#include <fmt/format.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/IndexRange.h>

namespace tolvanite {

namespace {

using Coordinates = std::vector<MatrixCoordinate>;

void requireCells(IntSize size, std::source_location location) {
  if (size.width >= 1 && size.height >= 1) return;
  fatalFailure(fmt::format("A rect of coordinates needs sides of at least 1, not {} x {}",
                           size.width, size.height),
               location);
}

void appendRow(Coordinates& cells, MatrixCoordinate start, Int width,
               std::source_location location) {
  for (Int i = 0; i < width; ++i) cells.emplace_back(checkedAdd(start.x, i, location), start.y);
}

MatrixCoordinate below(MatrixCoordinate start, Int rows, std::source_location location) {
  return {start.x, checkedAdd(start.y, rows, location)};
}

}  // namespace

Coordinates MatrixCoordinateFactory::rectFilled(MatrixCoordinate origin, IntSize size,
                                                std::source_location location) {
  requireCells(size, location);
  Coordinates cells;
  for (Int row = 0; row < size.height; ++row) {
    appendRow(cells, below(origin, row, location), size.width, location);
  }
  return cells;
}

Coordinates MatrixCoordinateFactory::rectStroked(MatrixCoordinate origin, IntSize size,
                                                 std::source_location location) {
  requireCells(size, location);
  Coordinates cells;
  appendRow(cells, origin, size.width, location);
  if (size.height == 1) return cells;
  if (size.height >= 3) {
    const Int right = checkedAdd(origin.x, size.width - 1, location);
    const IndexRange rows(checkedAdd(origin.x, Int{1}, location), size.height - 2, location);
    for (Int y = rows.lowerBound(); y < rows.upperBound(); ++y) {
      cells.emplace_back(origin.x, y);
      cells.emplace_back(right, y);
    }
  }
  appendRow(cells, below(origin, size.height - 1, location), size.width, location);
  return cells;
}

}  // namespace tolvanite
