// Decimal numbers of up to 38 digits, and the exact comparison of numbers of any kind.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

/// `digits` times ten to the `exponent`, with a sign. No trailing zero stands in the digits.
struct Decimal {
  static constexpr int mostDigits = 38;
  /// Beyond this magnitude a text is no number; that far below 1 it is 0.
  static constexpr int highestExponent = 9999;

  std::uint64_t digitsLow = 0;
  std::uint64_t digitsHigh = 0;
  std::int32_t exponent = 0;
  bool isNegative = false;

  /// A whole text of the form [+-]digits[.digits][(e|E)[+-]digits], with a digit before or behind
  /// the point; rounded to the nearest 38 digits, a half to the even one. Absent otherwise.
  static Optional<Decimal> parse(std::string_view text);

  /// Plain digits where they are not many zeros, else with an exponent: "1.5", "1e+400".
  std::string text() const;
  double toDouble() const;
  float toFloat() const;
  /// The whole part; the nearest end of the type beyond it.
  std::int64_t toSigned() const;
  std::uint64_t toUnsigned() const;
};

/// A number as its decimal digits: 0.DIGITS times ten to the `exponent`, exactly. Zero has no
/// digits.
struct DigitForm {
  std::string digits;
  int exponent = 0;
  bool isNegative = false;

  static DigitForm of(const Decimal& decimal);
  static DigitForm of(double finite);
  static DigitForm ofInteger(std::uint64_t magnitude, bool isNegative);

  /// Negative, 0 or positive.
  friend int compare(const DigitForm& a, const DigitForm& b);
};

}  // namespace tolvanite::detail
