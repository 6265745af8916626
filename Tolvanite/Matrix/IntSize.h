// The sides of a grid of integers, and the numbering of its cells row by row.
//
//   const IntSize size = IntSize::ofWidth(4, 10);   // 4 wide, 3 high: room for 10 elements
//   size.coordinateForIndex(5);                     // (1, 1)
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <source_location>
#include <string>
#include <utility>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/IntCoordinate.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>

namespace tolvanite {

/// A width and a height. Overflow in its arithmetic is fatal.
struct IntSize {
  constexpr IntSize() = default;
  /// Of these sides; nothing is checked.
  constexpr IntSize(Int ownWidth, Int ownHeight) : width(ownWidth), height(ownHeight) {}
  /// The width first.
  constexpr explicit IntSize(std::pair<Int, Int> tuple) : IntSize(tuple.first, tuple.second) {}

  /// That width, and the height that `elementCount` elements need. A width of 0 is fatal.
  static constexpr IntSize ofWidth(
      Int width, Int elementCount,
      std::source_location location = std::source_location::current()) {
    return {width, detail::dividedRoundedUp(elementCount, width, location)};
  }

  /// The number of cells.
  constexpr Int count(std::source_location location = std::source_location::current()) const {
    return checkedMultiply(width, height, location);
  }

  /// The cell of that number, counted row by row from 0. A width of 0 is fatal.
  constexpr IntCoordinate coordinateForIndex(
      Int index, std::source_location location = std::source_location::current()) const {
    return detail::rowMajorCoordinate<IntCoordinate>(index, width, location);
  }

  /// The number of a cell, counted row by row from 0. The coordinate need not lie in the size.
  constexpr Int indexForCoordinate(
      IntCoordinate coordinate,
      std::source_location location = std::source_location::current()) const {
    return detail::rowMajorIndex(coordinate.x, coordinate.y, width, location);
  }

  /// "IntSize(WIDTH, HEIGHT)".
  std::string description() const {
    return "IntSize(" + textForm(width) + ", " + textForm(height) + ")";
  }

  friend constexpr bool operator==(const IntSize&, const IntSize&) = default;
  friend std::ostream& operator<<(std::ostream& out, const IntSize& size) {
    return out << size.description();
  }

  Int width = 0;   ///< The number of columns.
  Int height = 0;  ///< The number of rows.
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::IntSize> {
  std::size_t operator()(const tolvanite::IntSize& size) const noexcept {
    return tolvanite::detail::mixedHash(size.width, size.height);
  }
};
