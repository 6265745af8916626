#include <Tolvanite/Matrix/Grid.h>

#include <cmath>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>

namespace tolvanite {

namespace {

// From the first of so many tiles to the end of the last.
double lengthOfTiles(Int count, double tile, double spacing) {
  return static_cast<double>(count) * (tile + spacing) - spacing;
}

// The tile that a place on an axis is on; absent in a gap.
Optional<Int> tileAt(double place, double tile, double spacing, std::source_location location) {
  const double stride = tile + spacing;
  const Int index = detail::intFrom(std::floor(place / stride), location);
  if (place >= stride * static_cast<double>(index) + tile) return {};
  return index;
}

Int tilesThatFit(double length, double tile, double spacing, std::source_location location) {
  if (length <= 0) return 0;
  const double stride = tile + spacing;
  const Int whole = detail::intFrom(std::floor(length / stride), location);
  // A last tile needs no gap behind it.
  if (tile > length - stride * static_cast<double>(whole)) return whole;
  return checkedAdd(whole, Int{1}, location);
}

struct Extent {
  Int first;
  Int last;
};

Optional<Extent> tilesBetween(double low, double high, double tile, double spacing,
                              std::source_location location) {
  const GridHitArea start = Grid::hitTest(low, tile, spacing, location);
  const GridHitArea end = Grid::hitTest(high, tile, spacing, location);
  const Int first = start.isTile() ? start.index() : checkedAdd(start.index(), Int{1}, location);
  // The tile inward from a gap at the end is the one in front of the gap, which has its index.
  if (first > end.index()) return {};
  return Extent{first, end.index()};
}

}  // namespace

Grid::Grid(CGSize innerTileSize, CGSize ownTileSpacing, NSEdgeInsets ownTilePadding,
           CGPoint ownTranslation)
    : tileSize(innerTileSize.width + ownTilePadding.left + ownTilePadding.right,
               innerTileSize.height + ownTilePadding.top + ownTilePadding.bottom),
      tileSpacing(ownTileSpacing),
      tilePadding(ownTilePadding),
      translation(ownTranslation) {}

CGRect Grid::rect(MatrixSize matrixSize) const {
  return {translation,
          {lengthOfTiles(matrixSize.width, tileSize.width, tileSpacing.width),
           lengthOfTiles(matrixSize.height, tileSize.height, tileSpacing.height)}};
}

CGRect Grid::rectForCoordinate(MatrixCoordinate coordinate) const {
  const double x = (tileSize.width + tileSpacing.width) * static_cast<double>(coordinate.x);
  const double y = (tileSize.height + tileSpacing.height) * static_cast<double>(coordinate.y);
  return {{x + translation.x, y + translation.y}, tileSize};
}

CGRect Grid::innerRectForCoordinate(MatrixCoordinate coordinate) const {
  const CGRect outer = rectForCoordinate(coordinate);
  return {{outer.origin.x + tilePadding.left, outer.origin.y + tilePadding.top},
          {outer.size.width - tilePadding.left - tilePadding.right,
           outer.size.height - tilePadding.top - tilePadding.bottom}};
}

Optional<MatrixCoordinate> Grid::coordinateForPoint(CGPoint point,
                                                    std::source_location location) const {
  const auto column = tileAt(point.x - translation.x, tileSize.width, tileSpacing.width, location);
  if (column.isNone()) return {};
  const auto row = tileAt(point.y - translation.y, tileSize.height, tileSpacing.height, location);
  if (row.isNone()) return {};
  return MatrixCoordinate(*column, *row);
}

GridHitArea Grid::hitTest(double place, double tileLength, double tileSpacing,
                          std::source_location location) {
  const double stride = tileLength + tileSpacing;
  const Int index = detail::intFrom(std::floor(place / stride), location);
  const double rest = place - stride * static_cast<double>(index);
  return rest >= tileLength ? GridHitArea::spacing(index) : GridHitArea::tile(index);
}

Int Grid::numberOfColumnsThatFitIntoWidth(double width, std::source_location location) const {
  return tilesThatFit(width, tileSize.width, tileSpacing.width, location);
}

std::pair<Int, Int> Grid::numberOfRowsAndColumnsThatFitIntoSize(
    CGSize size, std::source_location location) const {
  if (size.width <= 0 || size.height <= 0) return {0, 0};
  return {tilesThatFit(size.width, tileSize.width, tileSpacing.width, location),
          tilesThatFit(size.height, tileSize.height, tileSpacing.height, location)};
}

Optional<MatrixRect> Grid::extendOfRect(const CGRect& rect, std::source_location location) const {
  const auto columns = tilesBetween(rect.minX() - translation.x, rect.maxX() - translation.x,
                                    tileSize.width, tileSpacing.width, location);
  const auto rows = tilesBetween(rect.minY() - translation.y, rect.maxY() - translation.y,
                                 tileSize.height, tileSpacing.height, location);
  if (columns.isNone() || rows.isNone()) return {};
  return MatrixRect::ofEnds(columns->first, columns->last, rows->first, rows->last, location);
}

std::string Grid::description() const {
  return "Grid(tileSize:" + tileSize.description() + ", tileSpacing:" + tileSpacing.description() +
         ", tilePadding:" + tilePadding.description() + ")";
}

}  // namespace tolvanite
