// Divisions and conversions that stop the process rather than give a wrong integer.
#pragma once

#include <cstddef>
#include <limits>
#include <source_location>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Integers.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite::detail {

/// `a / b`, cut off towards zero. A `b` of 0 is fatal, and so is the one quotient that is no Int.
constexpr Int checkedDivide(Int a, Int b,
                            std::source_location location = std::source_location::current()) {
  if (b == 0) fatalFailure("Division by zero", location);
  if (b == -1) return checkedSubtract(Int{0}, a, location);
  return a / b;
}

/// The number of groups of `size` that `count` elements need: `(count + size - 1) / size`.
constexpr Int dividedRoundedUp(Int count, Int size,
                               std::source_location location = std::source_location::current()) {
  const Int raised = checkedSubtract(checkedAdd(count, size, location), Int{1}, location);
  return checkedDivide(raised, size, location);
}

/// The position of a cell in a row-major grid of that width: `y * width + x`.
constexpr Int rowMajorIndex(Int x, Int y, Int width,
                            std::source_location location = std::source_location::current()) {
  return checkedAdd(checkedMultiply(y, width, location), x, location);
}

/// The coordinate of that position in a row-major grid of that width, which must not be 0.
template <typename Coordinate>
constexpr Coordinate rowMajorCoordinate(
    Int index, Int width, std::source_location location = std::source_location::current()) {
  const Int x = checkedRemainder(index, width, location);
  return Coordinate(x, checkedDivide(checkedSubtract(index, x, location), width, location));
}

/// The sides of a closed range of columns or rows.
constexpr Int closedLength(Int start, Int end,
                           std::source_location location = std::source_location::current()) {
  return checkedAdd(checkedSubtract(end, start, location), Int{1}, location);
}

/// `value` without its fraction; fatal if it is no number or an Int cannot hold it.
inline Int intFrom(double value, std::source_location location = std::source_location::current()) {
  if (!(value >= -0x1p63 && value < 0x1p63)) {
    fatalFailure("No Int can hold " + floatingText(value), location);
  }
  return static_cast<Int>(value);
}

/// A hash value of integers that are mixed, so that coordinates of a small grid spread well.
template <typename... Integers>
std::size_t mixedHash(Integers... values) noexcept {
  std::size_t hash = 0;
  ((hash = (hash ^ static_cast<std::size_t>(values)) * 0x9E3779B97F4A7C15U, hash ^= hash >> 32U),
   ...);
  return hash;
}

}  // namespace tolvanite::detail
