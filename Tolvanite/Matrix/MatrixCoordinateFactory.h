// Lists of the cells of a rectangle.
//
//   const auto cells = MatrixCoordinateFactory::rectFilled({2, 1}, {3, 2});   // (2, 1), (3, 1),
//   ...
#pragma once

#include <source_location>
#include <vector>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/IntSize.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Makes lists of coordinates. A width or height below 1 is fatal.
struct TOLVANITE_EXPORT MatrixCoordinateFactory {
  /// All cells of the rectangle, row by row.
  static std::vector<MatrixCoordinate> rectFilled(
      MatrixCoordinate origin, IntSize size,
      std::source_location location = std::source_location::current());

  /// The top line, the sides, the bottom line. The side rows are y from `origin.x` + 1 up to, but
  /// without, height - 2, whatever `origin.y`, deliberately: of a rectangle at (0, 0) that is 5
  /// high the sides of rows 1 and 2 come, and row 3 does not. From a height of 3 on, such a range
  /// that ends before it starts is fatal.
  static std::vector<MatrixCoordinate> rectStroked(
      MatrixCoordinate origin, IntSize size,
      std::source_location location = std::source_location::current());
};

}  // namespace tolvanite
