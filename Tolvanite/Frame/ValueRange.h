// Tests a value against a range and forces it into one. The bounds belong to the range, and may be
// of any type that turns into that of the value.
//
//   tvIfValueWithin(0, column, 79)     // low, value, high
//   tvLimitValue(column, 0, 79)        // value, low, high
#pragma once

#include <concepts>
#include <type_traits>

namespace tolvanite {

/// A bound that keeps its meaning as a `T`: 0 is one for a double, 0.5 is none for an int.
template <typename Bound, typename T>
concept BoundOf = std::convertible_to<Bound, T> && std::same_as<std::common_type_t<T, Bound>, T>;

/// Whether `value`, the middle argument, is not below `low` and not above `high`.
template <std::totally_ordered T, BoundOf<T> Low, BoundOf<T> High>
constexpr bool tvIfValueWithin(const Low& low, const T& value, const High& high) {
  return value >= static_cast<const T&>(low) && value <= static_cast<const T&>(high);
}

/// The value, raised to `low` when below it, and then cut to `high` when above: with `low` above
/// `high` the result is `high`.
template <std::totally_ordered T, BoundOf<T> Low, BoundOf<T> High>
constexpr T tvLimitValue(const T& value, const Low& low, const High& high) {
  const T raised = value < static_cast<const T&>(low) ? static_cast<const T&>(low) : value;
  return raised > static_cast<const T&>(high) ? static_cast<const T&>(high) : raised;
}

}  // namespace tolvanite
