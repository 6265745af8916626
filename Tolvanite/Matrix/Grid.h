// A fixed layout of tiles with gaps between them, and what lies where in it.
//
//   const Grid grid(CGSize(32, 32), CGSize(4, 4), NSEdgeInsets(2, 2, 2, 2), CGPoint(10, 10));
//   grid.rectForCoordinate({1, 0});                       // (50, 10, 36, 36)
//   grid.coordinateForPoint(CGPoint(60, 20));             // (1, 0)
//   grid.extendOfRect(CGRect(20, 20, 40, 10));            // the tiles (0, 0) to (1, 0)
//
// The grid has no end: coordinates left of the first column or below the first row are negative. A
// coordinate that an Int cannot hold is fatal, and so is one that is no number, as of tiles of size
// 0.
#pragma once

#include <ostream>
#include <source_location>
#include <string>
#include <utility>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/GridHitArea.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/MatrixRect.h>
#include <Tolvanite/Matrix/MatrixSize.h>
#include <Tolvanite/Matrix/PlainGeometry.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

struct TOLVANITE_EXPORT Grid {
  Grid() = default;
  /// The size of a tile is the inner one and the padding around it.
  explicit Grid(CGSize innerTileSize, CGSize ownTileSpacing = {}, NSEdgeInsets ownTilePadding = {},
                CGPoint ownTranslation = {});

  /// The rect of a matrix of tiles at (0, 0), without a gap behind the last ones.
  CGRect rect(MatrixSize matrixSize) const;
  /// The rect of a tile.
  CGRect rectForCoordinate(MatrixCoordinate coordinate) const;
  /// The rect of a tile without its padding.
  CGRect innerRectForCoordinate(MatrixCoordinate coordinate) const;

  /// The tile that a point is on; absent if it is in a gap.
  Optional<MatrixCoordinate> coordinateForPoint(
      CGPoint point, std::source_location location = std::source_location::current()) const;

  /// What a location on one axis is on. A tile begins with its first point, and its gap with the
  /// point behind the tile: `hitTest(10, 10, 2)` gives `spacing(0)`, `hitTest(12, 10, 2)`
  /// `tile(1)`.
  static GridHitArea hitTest(double place, double tileLength, double tileSpacing,
                             std::source_location location = std::source_location::current());

  /// The number of columns that fit, the last one without its gap; 0 for a width of 0 or less.
  Int numberOfColumnsThatFitIntoWidth(
      double width, std::source_location location = std::source_location::current()) const;
  /// The numbers of columns and rows that fit; (0, 0) if a side is 0 or less.
  std::pair<Int, Int> numberOfRowsAndColumnsThatFitIntoSize(
      CGSize size, std::source_location location = std::source_location::current()) const;

  /// The tiles that a rectangle touches; absent if it lies wholly in a gap. A rectangle dragged
  /// from one point to another, in whatever direction, touches the tiles under both points and all
  /// between. On each axis the two edges are tested by `hitTest`; one that is in a gap moves to the
  /// next tile inward:
  ///
  ///       |  tile 0  |    |  tile 1  |    |  tile 2  |
  ///          [--------------------]                      0 to 1: both edges are on tiles
  ///                    [-----------]                     1 to 1: the left edge moves rightward
  ///          [-------------------------]                 0 to 1: the right edge moves leftward
  ///                    []                                absent: the edges have passed each other
  ///          [----------------------------]              0 to 2: the first point of tile 2 counts
  ///                   [------------]                     1 to 1: the point behind tile 0 does not
  Optional<MatrixRect> extendOfRect(
      const CGRect& rect, std::source_location location = std::source_location::current()) const;

  /// "Grid(tileSize:SIZE, tileSpacing:SIZE, tilePadding:INSETS)".
  std::string description() const;

  friend bool operator==(const Grid&, const Grid&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Grid& grid) {
    return out << grid.description();
  }

  /// The outer size of a tile, with its padding.
  CGSize tileSize;
  /// The gaps between the tiles.
  CGSize tileSpacing;
  /// How far a tile's inner rect lies within its edges; a part of `tileSize`. The top is the edge
  /// of the lower y here.
  NSEdgeInsets tilePadding;
  /// Where the tile (0, 0) begins.
  CGPoint translation;
};

}  // namespace tolvanite
