// A rectangle of matrix cells, closed at both ends: a rectangle of one cell starts and ends in it.
//
//   MatrixRect rect(MatrixCoordinate(2, 1), MatrixSize(3, 2));
//   rect.endColumn;                                          // 4
//   rect.formUnion(MatrixRect::ofPosition(0, 0, 1, 1));      // now 5 x 3 from (0, 0)
//   for (const MatrixCoordinate cell : rect) mark(cell);     // row by row
//
// Operations that take or give a MatrixSize need <Tolvanite/Matrix/MatrixSize.h>.
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <source_location>
#include <string>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>
#include <Tolvanite/Matrix/detail/RectCells.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

struct MatrixSize;

/// Columns and rows, the ends included; sides that an Int cannot hold are fatal. A sequence of its
/// cells, row by row; an end before its start leaves no cell. A rect made without arguments is that
/// of size (0, 0) at (0, 0).
struct TOLVANITE_EXPORT MatrixRect {
  MatrixRect() = default;
  /// Starts at `coordinate` and has that size.
  MatrixRect(MatrixCoordinate coordinate, const MatrixSize& size,
             std::source_location location = std::source_location::current());
  /// Starts at (x, y) and has these sides.
  static MatrixRect ofPosition(Int x, Int y, Int width, Int height,
                               std::source_location location = std::source_location::current());
  /// Reaches from the starts to the ends, both included.
  static MatrixRect ofEnds(Int startColumn, Int endColumn, Int startRow, Int endRow,
                           std::source_location location = std::source_location::current());

  /// The number of columns.
  constexpr Int width(std::source_location location = std::source_location::current()) const {
    return detail::closedLength(startColumn, endColumn, location);
  }
  /// The number of rows.
  constexpr Int height(std::source_location location = std::source_location::current()) const {
    return detail::closedLength(startRow, endRow, location);
  }
  /// Both sides.
  MatrixSize size(std::source_location location = std::source_location::current()) const;

  /// The start column and start row.
  constexpr MatrixCoordinate topLeft() const { return {startColumn, startRow}; }
  /// The end column and end row.
  constexpr MatrixCoordinate bottomRight() const { return {endColumn, endRow}; }

  /// Moves the rect by these distances.
  void moveBy(Int dx, Int dy, std::source_location location = std::source_location::current());
  /// The rect moved by these distances.
  MatrixRect rectMovedBy(Int dx, Int dy,
                         std::source_location location = std::source_location::current()) const;

  /// Grows the rect to the smallest that holds `other` too.
  void formUnion(const MatrixRect& other,
                 std::source_location location = std::source_location::current());

  /// Takes `dx` columns off the left and off the right, and `dy` rows off the top and off the
  /// bottom; negative ones add to them.
  void insetBy(Int dx, Int dy, std::source_location location = std::source_location::current());
  /// The rect with that inset.
  MatrixRect rectInsetedBy(Int dx, Int dy,
                           std::source_location location = std::source_location::current()) const;

  /// A walk over the cells that is pulled by `next()`.
  constexpr detail::RectWalk<MatrixCoordinate> makeIterator() const {
    return {startColumn, endColumn, startRow, endRow};
  }
  /// The cells as a range, row by row; the iterators stay good when the rect changes or ends.
  /// @{
  constexpr detail::RectIterator<MatrixCoordinate> begin() const {
    return detail::RectIterator<MatrixCoordinate>(makeIterator());
  }
  constexpr detail::RectIterator<MatrixCoordinate> end() const { return {}; }
  /// @}

  /// "MatrixRect(WIDTH x HEIGHT: startColumn: C, endColumn: C, startRow: R, endRow: R))", the
  /// second bracket at the end deliberately included.
  std::string description() const;

  friend constexpr bool operator==(const MatrixRect&, const MatrixRect&) = default;
  friend std::ostream& operator<<(std::ostream& out, const MatrixRect& rect) {
    return out << rect.description();
  }

  Int startColumn = 0;  ///< The first column.
  Int endColumn = -1;   ///< The last column; none if it is before the first.
  Int startRow = 0;     ///< The first row.
  Int endRow = -1;      ///< The last row; none if it is before the first.
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::MatrixRect> {
  std::size_t operator()(const tolvanite::MatrixRect& rect) const noexcept {
    return tolvanite::detail::mixedHash(rect.startColumn, rect.endColumn, rect.startRow,
                                        rect.endRow);
  }
};
