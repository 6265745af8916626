// Tests a value against a range and forces it into one. The bounds belong to the range.
//
//   tvIfValueWithin(0, column, 79)     // low, value, high
//   tvLimitValue(column, 0, 79)        // value, low, high
#pragma once

#include <concepts>

namespace tolvanite {

/// Whether `value`, the middle argument, is not below `low` and not above `high`.
template <std::totally_ordered T>
constexpr bool tvIfValueWithin(const T& low, const T& value, const T& high) {
  return value >= low && value <= high;
}

/// The value, raised to `low` when below it, and then cut to `high` when above: with `low` above
/// `high` the result is `high`.
template <std::totally_ordered T>
constexpr T tvLimitValue(const T& value, const T& low, const T& high) {
  const T& raised = value < low ? low : value;
  return raised > high ? high : raised;
}

}  // namespace tolvanite
