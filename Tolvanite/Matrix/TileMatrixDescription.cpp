#include <Tolvanite/Matrix/TileMatrixDescription.h>

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>

namespace tolvanite {

namespace {

// One axis of a frame: the tiles that fit, and what they leave.
struct Fit {
  Int count;
  double tile;
  double rest;
};

Fit fit(double frame, double tile, std::source_location location) {
  const double room = std::max(tile, frame);
  const Int count = detail::intFrom(std::floor(room / tile), location);
  return {count, tile, room - static_cast<double>(count) * tile};
}

double enlarged(const Fit& axis) { return axis.tile + axis.rest / static_cast<double>(axis.count); }

CGRect roundedOutward(CGPoint origin, CGSize size) {
  return {{std::floor(origin.x), std::floor(origin.y)},
          {std::ceil(size.width), std::ceil(size.height)}};
}

double ratio(double length, Int count) { return length / static_cast<double>(count); }

}  // namespace

using Tiles = TileMatrixDescription;

Tiles Tiles::from(CGSize frameSize, CGSize tileSize, Placement tilePlacement,
                  std::source_location location) {
  const Fit x = fit(frameSize.width, tileSize.width, location);
  const Fit y = fit(frameSize.height, tileSize.height, location);
  const MatrixSize counts(x.count, y.count);
  switch (tilePlacement) {
    case Placement::enlargeTiles:
      return {counts, {0, 0}, {enlarged(x), enlarged(y)}};
    case Placement::centered:
      return {counts, {x.rest / 2, y.rest / 2}, tileSize};
    case Placement::topLeft:
      return {counts, {0, y.rest}, tileSize};
    case Placement::bottomLeft:
      return {counts, {0, 0}, tileSize};
    case Placement::bottomRight:
      return {counts, {x.rest, 0}, tileSize};
    case Placement::topRight:
      return {counts, {x.rest, y.rest}, tileSize};
  }
  fatalFailure("Unknown placement of tiles", location);
}

Tiles Tiles::fromMaxTileMatrixSize(CGSize frameSize, MatrixSize maxTileMatrixSize,
                                   CGSize optimalTileSize, Placement tilePlacement,
                                   std::source_location location) {
  const Tiles optimal = from(frameSize, optimalTileSize, tilePlacement, location);
  if (optimal.matrixSize.width <= maxTileMatrixSize.width &&
      optimal.matrixSize.height <= maxTileMatrixSize.height) {
    return optimal;
  }
  const double side = std::max(ratio(frameSize.width, maxTileMatrixSize.width),
                               ratio(frameSize.height, maxTileMatrixSize.height));
  return from(frameSize, {side, side}, tilePlacement, location);
}

Tiles Tiles::fromMinTileMatrixSize(CGSize frameSize, MatrixSize minTileMatrixSize,
                                   CGSize optimalTileSize, Placement tilePlacement,
                                   std::source_location location) {
  const Tiles optimal = from(frameSize, optimalTileSize, tilePlacement, location);
  if (optimal.matrixSize.width >= minTileMatrixSize.width &&
      optimal.matrixSize.height >= minTileMatrixSize.height) {
    return optimal;
  }
  const double side = std::min(ratio(frameSize.width, minTileMatrixSize.width),
                               ratio(frameSize.height, minTileMatrixSize.height));
  return from(frameSize, {side, side}, tilePlacement, location);
}

CGRect Tiles::rect(MatrixCoordinate coordinate, std::source_location location) const {
  return rect(MatrixRect(coordinate, MatrixSize(1, 1), location), location);
}

CGRect Tiles::rect(const MatrixRect& matrixRect, std::source_location location) const {
  const Int row = checkedSubtract(checkedSubtract(matrixSize.height, matrixRect.startRow, location),
                                  Int{1}, location);
  return roundedOutward({origin.x + static_cast<double>(matrixRect.startColumn) * tileSize.width,
                         origin.y + static_cast<double>(row) * tileSize.height},
                        {tileSize.width * static_cast<double>(matrixRect.width(location)),
                         tileSize.height * static_cast<double>(matrixRect.height(location))});
}

Tiles Tiles::tileQuaded(std::source_location location) const {
  return {MatrixSize(checkedMultiply(matrixSize.width, Int{2}, location),
                     checkedMultiply(matrixSize.height, Int{2}, location)),
          origin, CGSize(tileSize.width / 2, tileSize.height / 2)};
}

std::string Tiles::description() const {
  return fmt::format("TileMatrixDescription({} * {}, origin={}, tileSize={})", matrixSize.width,
                     matrixSize.height, origin.description(), tileSize.description());
}

}  // namespace tolvanite
