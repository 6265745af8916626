// A place in a grid of integers.
//
//   const IntCoordinate next = IntCoordinate(9, 0).withOffset(1, 0, 10);   // (0, 1)
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <source_location>
#include <string>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>

namespace tolvanite {

/// A column and a row. Overflow in its arithmetic is fatal.
struct IntCoordinate {
  constexpr IntCoordinate() = default;
  /// Of any column and row, negative ones too.
  constexpr IntCoordinate(Int ownX, Int ownY) : x(ownX), y(ownY) {}

  /// Moved by these distances.
  constexpr IntCoordinate withOffset(
      Int dx, Int dy, std::source_location location = std::source_location::current()) const {
    return {checkedAdd(x, dx, location), checkedAdd(y, dy, location)};
  }

  /// Moved by these distances; left of the first column it is in the last column of the row before,
  /// beyond the last it is in the first column of the row behind. Wraps once only, deliberately,
  /// however far `dx` reaches.
  constexpr IntCoordinate withOffset(
      Int dx, Int dy, Int wrapAroundWithColumnCount,
      std::source_location location = std::source_location::current()) const {
    const IntCoordinate moved = withOffset(dx, dy, location);
    if (moved.x < 0) {
      return {checkedSubtract(wrapAroundWithColumnCount, Int{1}, location),
              checkedSubtract(moved.y, Int{1}, location)};
    }
    if (moved.x >= wrapAroundWithColumnCount) return {0, checkedAdd(moved.y, Int{1}, location)};
    return moved;
  }

  /// "IntCoordinate(X, Y)".
  std::string description() const {
    return "IntCoordinate(" + textForm(x) + ", " + textForm(y) + ")";
  }

  friend constexpr bool operator==(const IntCoordinate&, const IntCoordinate&) = default;
  friend std::ostream& operator<<(std::ostream& out, const IntCoordinate& coordinate) {
    return out << coordinate.description();
  }

  Int x = 0;  ///< The column.
  Int y = 0;  ///< The row.
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::IntCoordinate> {
  std::size_t operator()(const tolvanite::IntCoordinate& coordinate) const noexcept {
    return tolvanite::detail::mixedHash(coordinate.x, coordinate.y);
  }
};
