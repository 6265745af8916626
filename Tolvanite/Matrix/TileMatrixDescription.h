// As many tiles as a frame has room for, and where each of them is drawn.
//
//   using Tiles = TileMatrixDescription;
//   const Tiles tiles = Tiles::from(CGSize(100, 100), CGSize(30, 30), Tiles::Placement::centered);
//   tiles.matrixSize;                            // 3 by 3, from (5, 5) on
//   tiles.rect(MatrixCoordinate(0, 0));          // the upper left tile: (5, 65, 30, 30)
//
// Points have a y that grows upward; the rows of the matrix run from the top. A count of tiles that
// an Int cannot hold is fatal, and so is one that is no number: that of tiles of size 0.
#pragma once

#include <cstdint>
#include <ostream>
#include <source_location>
#include <string>

#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/MatrixRect.h>
#include <Tolvanite/Matrix/MatrixSize.h>
#include <Tolvanite/Matrix/PlainGeometry.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

struct TOLVANITE_EXPORT TileMatrixDescription {
  /// What becomes of the room that whole tiles leave: shared out among the tiles, or kept free on
  /// both sides, or on the sides opposite to the named corner.
  enum class Placement : std::uint8_t {
    enlargeTiles,
    centered,
    topLeft,
    bottomLeft,
    bottomRight,
    topRight
  };

  TileMatrixDescription() = default;
  /// Of known parts; nothing is checked. `from` computes them from a frame.
  TileMatrixDescription(MatrixSize ownMatrixSize, CGPoint ownOrigin, CGSize ownTileSize)
      : matrixSize(ownMatrixSize), origin(ownOrigin), tileSize(ownTileSize) {}

  /// As many tiles as fit, but at least one.
  static TileMatrixDescription from(
      CGSize frameSize, CGSize tileSize, Placement tilePlacement,
      std::source_location location = std::source_location::current());
  /// The same with the optimal tile, if that leads to no more columns and rows than the maximum.
  /// Else with square tiles of the least side that brings both axes under the maximum.
  static TileMatrixDescription fromMaxTileMatrixSize(
      CGSize frameSize, MatrixSize maxTileMatrixSize, CGSize optimalTileSize,
      Placement tilePlacement, std::source_location location = std::source_location::current());
  /// The same with the optimal tile, if that leads to no fewer columns and rows than the minimum.
  /// Else with square tiles of the greatest side that brings both axes to the minimum.
  static TileMatrixDescription fromMinTileMatrixSize(
      CGSize frameSize, MatrixSize minTileMatrixSize, CGSize optimalTileSize,
      Placement tilePlacement, std::source_location location = std::source_location::current());

  /// Where a tile is drawn: its origin floored and its size rounded up, so that tiles of broken
  /// sides leave no seams.
  CGRect rect(MatrixCoordinate coordinate,
              std::source_location location = std::source_location::current()) const;
  /// The size of so many tiles, at the place of the tile in the start column and start row.
  CGRect rect(const MatrixRect& matrixRect,
              std::source_location location = std::source_location::current()) const;

  /// Each tile divided into four.
  TileMatrixDescription tileQuaded(
      std::source_location location = std::source_location::current()) const;

  /// "TileMatrixDescription(COLUMNS * ROWS, origin=ORIGIN, tileSize=SIZE)".
  std::string description() const;

  friend bool operator==(const TileMatrixDescription&, const TileMatrixDescription&) = default;
  friend std::ostream& operator<<(std::ostream& out, const TileMatrixDescription& tiles) {
    return out << tiles.description();
  }

  MatrixSize matrixSize;  ///< The numbers of columns and rows.
  CGPoint origin;         ///< Where the lower left tile begins in the frame.
  CGSize tileSize;        ///< The size of each tile, not rounded.
};

}  // namespace tolvanite
