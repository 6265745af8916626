// Small arithmetic on integers of any width. Overflow is fatal.
//
//   tolvanite::Int page = 2;
//   const bool wrapped = tolvanite::moduloedIncrease(page, 3);    // page is 0, wrapped
//   const tolvanite::Int ticket = tolvanite::increaseAndReturnBeforeValue(nextTicket, 1);
#pragma once

#include <concepts>
#include <source_location>
#include <type_traits>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// An integer that can be calculated with; truth values are none.
template <typename T>
concept CountingInteger = std::integral<T> && !std::same_as<std::remove_cv_t<T>, bool>;

namespace detail {

template <CountingInteger Integer>
constexpr Integer checkedRemainder(Integer value, Integer modulo, std::source_location location) {
  if (modulo == 0) fatalFailure("Division by zero in a remainder", location);
  if constexpr (std::signed_integral<Integer>) {
    // The remainder by -1 is 0, but the division behind it leaves the type at the lowest value.
    if (modulo == -1) return 0;
  }
  return static_cast<Integer>(value % modulo);
}

}  // namespace detail

/// Adds `by` to `value` and wraps the sum into 0 to `modulo` - 1, downward too. Answers whether it
/// had to wrap. A `by` of 0 is fatal, and so is a `modulo` of 0.
template <CountingInteger Integer>
constexpr bool moduloedIncrease(Integer& value, std::type_identity_t<Integer> by,
                                std::type_identity_t<Integer> modulo,
                                std::source_location location = std::source_location::current()) {
  if (by == 0) fatalFailure("moduloedIncrease by 0", location);
  value = checkedAdd<Integer>(value, by, location);
  if (value >= modulo) {
    value = detail::checkedRemainder<Integer>(value, modulo, location);
    return true;
  }
  if constexpr (std::signed_integral<Integer>) {
    if (value < 0) {
      value = detail::checkedRemainder<Integer>(value, modulo, location);
      value = checkedAdd<Integer>(value, modulo, location);
      value = detail::checkedRemainder<Integer>(value, modulo, location);
      return true;
    }
  }
  return false;
}

/// `moduloedIncrease` by 1.
template <CountingInteger Integer>
constexpr bool moduloedIncrease(Integer& value, std::type_identity_t<Integer> modulo,
                                std::source_location location = std::source_location::current()) {
  return moduloedIncrease(value, Integer{1}, modulo, location);
}

/// The value that `moduloedIncrease` would leave.
template <CountingInteger Integer>
constexpr Integer moduloedIncreased(
    Integer value, std::type_identity_t<Integer> by, std::type_identity_t<Integer> modulo,
    std::source_location location = std::source_location::current()) {
  moduloedIncrease(value, by, modulo, location);
  return value;
}

/// `moduloedIncreased` by 1.
template <CountingInteger Integer>
constexpr Integer moduloedIncreased(
    Integer value, std::type_identity_t<Integer> modulo,
    std::source_location location = std::source_location::current()) {
  return moduloedIncreased(value, Integer{1}, modulo, location);
}

/// Adds `by` to `value` and gives the value before.
template <CountingInteger Integer>
constexpr Integer increaseAndReturnBeforeValue(
    Integer& value, std::type_identity_t<Integer> by,
    std::source_location location = std::source_location::current()) {
  const Integer before = value;
  value = checkedAdd<Integer>(value, by, location);
  return before;
}

/// Adds `by` to `value` and gives the value after.
template <CountingInteger Integer>
constexpr Integer increaseAndReturnAfterValue(
    Integer& value, std::type_identity_t<Integer> by,
    std::source_location location = std::source_location::current()) {
  value = checkedAdd<Integer>(value, by, location);
  return value;
}

/// `value` if it lies in `from` to `to`, both included, else `elze`.
template <CountingInteger Integer>
constexpr Integer intKept(Integer value, std::type_identity_t<Integer> from,
                          std::type_identity_t<Integer> to, std::type_identity_t<Integer> elze) {
  return from <= value && value <= to ? value : elze;
}

/// The count of characters of the decimal text of `value`, a minus sign included.
template <CountingInteger Integer>
constexpr Int numberOfDigits(Integer value) {
  Int count = value < Integer{1} ? 1 : 0;  // the digit of 0, or the minus sign
  for (; value != 0; value = static_cast<Integer>(value / 10)) ++count;
  return count;
}

}  // namespace tolvanite
