// A rectangle of grid cells, closed at both ends.
//
//   const IntRect rect{.startColumn = 2, .endColumn = 4, .startRow = 1, .endRow = 1};
//   rect.width();                                     // 3
//   for (const IntCoordinate cell : rect) mark(cell);   // (2, 1), (3, 1), (4, 1)
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <source_location>
#include <string>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/IntCoordinate.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>
#include <Tolvanite/Matrix/detail/RectCells.h>

namespace tolvanite {

/// Columns and rows, the ends included. A sequence of its cells, row by row; an end before its
/// start leaves no cell.
struct IntRect {
  /// The number of columns; overflow is fatal.
  constexpr Int width(std::source_location location = std::source_location::current()) const {
    return detail::closedLength(startColumn, endColumn, location);
  }
  /// The number of rows; overflow is fatal.
  constexpr Int height(std::source_location location = std::source_location::current()) const {
    return detail::closedLength(startRow, endRow, location);
  }

  /// A walk over the cells that is pulled by `next()`.
  constexpr detail::RectWalk<IntCoordinate> makeIterator() const {
    return {startColumn, endColumn, startRow, endRow};
  }
  /// The cells as a range, row by row; the iterators stay good when the rect changes or ends.
  /// @{
  constexpr detail::RectIterator<IntCoordinate> begin() const {
    return detail::RectIterator<IntCoordinate>(makeIterator());
  }
  constexpr detail::RectIterator<IntCoordinate> end() const { return {}; }
  /// @}

  /// "IntRect(WIDTH x HEIGHT: startColumn: C, endColumn: C, startRow: R, endRow: R))", the second
  /// bracket at the end deliberately included.
  std::string description() const {
    return "IntRect(" + textForm(width()) + " x " + textForm(height()) +
           ": startColumn: " + textForm(startColumn) + ", endColumn: " + textForm(endColumn) +
           ", startRow: " + textForm(startRow) + ", endRow: " + textForm(endRow) + "))";
  }

  friend constexpr bool operator==(const IntRect&, const IntRect&) = default;
  friend std::ostream& operator<<(std::ostream& out, const IntRect& rect) {
    return out << rect.description();
  }

  Int startColumn = 0;  ///< The first column.
  Int endColumn = 0;    ///< The last column; none if it is before the first.
  Int startRow = 0;     ///< The first row.
  Int endRow = 0;       ///< The last row; none if it is before the first.
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::IntRect> {
  std::size_t operator()(const tolvanite::IntRect& rect) const noexcept {
    return tolvanite::detail::mixedHash(rect.startColumn, rect.endColumn, rect.startRow,
                                        rect.endRow);
  }
};
