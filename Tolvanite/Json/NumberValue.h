// A number that remembers how it was given: a truth value, a signed or unsigned integer of 64 bits,
// a floating-point number or a decimal number of up to 38 digits.
//
//   const NumberValue width = 3;
//   width.compare(3.0)                                    NumberValue::Order::same
//   NumberValue(0.1).stringValue()                        "0.1"
//   NumberValue(true).isBool()                            true; NumberValue(1).isBool() is not
//   NumberValue::decimal("12345678901234567890123")       a number that no double can hold
//
// Equality and order are by value whatever the kind, and exact: no integer is rounded on the way.
// A copy costs a word or two.
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Json/detail/Cell.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

namespace detail {

/// Integers that are numbers: neither truth values nor characters.
template <typename T>
concept NumberInteger =
    std::integral<T> && sizeof(T) <= 8 && !std::same_as<T, bool> && !std::same_as<T, char> &&
    !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> && !std::same_as<T, char16_t> &&
    !std::same_as<T, char32_t>;

template <std::same_as<bool> T>
Cell numberCell(T value) noexcept {
  return Cell::boolean(value);
}
template <NumberInteger T>
Cell numberCell(T value) noexcept {
  if constexpr (std::unsigned_integral<T>) return Cell::unsignedInteger(value);
  return Cell::signedInteger(static_cast<std::int64_t>(value));
}
template <std::floating_point T>
Cell numberCell(T value) noexcept {
  return Cell::real(static_cast<double>(value));
}

/// What becomes a number value by itself.
template <typename T>
concept PlainNumber = std::same_as<T, bool> || NumberInteger<T> || std::floating_point<T>;

}  // namespace detail

class TOLVANITE_EXPORT NumberValue {
 public:
  /// How a number was given. It does not count where numbers are compared.
  enum class Kind { boolean, signedInteger, unsignedInteger, real, decimal };
  /// Whether another number, to which this is compared, is greater, the same or less.
  enum class Order { ascending, same, descending };

  /// The integer 0.
  NumberValue() noexcept : NumberValue(0) {}
  /// A number of the kind of its type; a float becomes the same number as a double.
  template <detail::PlainNumber T>
  NumberValue(T value) noexcept : cell_(detail::numberCell(value)) {}

  /// The decimal number that a text is as a whole: digits with an optional sign, decimal point and
  /// exponent, rounded to 38 digits. Absent for any other text, and beyond 1e9999.
  static Optional<NumberValue> decimal(std::string_view text);

  /// The two truth values that all others are equal to.
  /// @{
  static const NumberValue& sharedTrue();
  static const NumberValue& sharedFalse();
  /// @}

  /// How this was given: an integer by the sign of its type, not of its value.
  Kind kind() const noexcept;
  /// Whether this was given as a truth value. A plain 1 or 0 was not.
  bool isBool() const noexcept { return cell_.tag() == detail::CellTag::boolean; }

  /// The conversions. An integer that does not fit keeps its low bits. A floating-point number or
  /// decimal loses its fraction and goes to the nearest end of the type; what is no number to 0.
  /// @{
  bool boolValue() const noexcept;
  std::int8_t charValue() const noexcept;
  std::uint8_t unsignedCharValue() const noexcept;
  std::int16_t shortValue() const noexcept;
  std::uint16_t unsignedShortValue() const noexcept;
  std::int32_t intValue() const noexcept;
  std::uint32_t unsignedIntValue() const noexcept;
  std::int64_t longLongValue() const noexcept;
  std::uint64_t unsignedLongLongValue() const noexcept;
  Int integerValue() const noexcept { return longLongValue(); }
  std::uint64_t unsignedIntegerValue() const noexcept { return unsignedLongLongValue(); }
  /// The nearest one.
  double doubleValue() const noexcept {
    return cell_.tag() == detail::CellTag::real ? cell_.realNumber() : nearestDouble();
  }
  float floatValue() const noexcept;
  /// @}

  /// The text: digits; for a floating-point number the fewest that read back as the same number,
  /// without a ".0" behind a whole one; "true" or "false" for a truth value.
  std::string stringValue() const;
  /// The `stringValue`.
  std::string description() const { return stringValue(); }

  /// How this stands to another number, by value: a truth value counts as 1 or 0, and what is no
  /// number equals itself and stands before all numbers.
  Order compare(const NumberValue& other) const noexcept;

  friend bool operator==(const NumberValue& a, const NumberValue& b) noexcept {
    return a.compare(b) == Order::same;
  }
  friend std::weak_ordering operator<=>(const NumberValue& a, const NumberValue& b) noexcept {
    return static_cast<int>(a.compare(b)) <=> static_cast<int>(Order::same);
  }
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const NumberValue& number);

  /// For the JSON types, which hold numbers in the same way.
  /// @{
  explicit NumberValue(detail::Cell cell) noexcept : cell_(std::move(cell)) {}
  const detail::Cell& cell() const noexcept { return cell_; }
  /// @}

 private:
  template <typename T>
  T narrowed() const noexcept;
  double nearestDouble() const noexcept;

  detail::Cell cell_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::NumberValue> {
  TOLVANITE_EXPORT std::size_t operator()(const tolvanite::NumberValue& number) const noexcept;
};
