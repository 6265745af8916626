#include <Tolvanite/Json/detail/Decimal.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace tolvanite::detail {

namespace {

__extension__ using Wide = unsigned __int128;

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

Wide wideOf(const Decimal& decimal) { return Wide{decimal.digitsHigh} << 64 | decimal.digitsLow; }

std::string digitsOf(Wide value) {
  std::string digits;
  for (; value != 0; value /= 10) digits += static_cast<char>('0' + static_cast<int>(value % 10));
  std::ranges::reverse(digits);
  return digits;
}

DigitForm digitForm(std::string digits, int exponent, bool isNegative) {
  while (digits.ends_with('0')) digits.pop_back();
  if (digits.empty()) return {};
  return {std::move(digits), exponent, isNegative};
}

template <typename T>
T nearest(const Decimal& decimal) {
  const std::string digits = digitsOf(wideOf(decimal)) + "e" + std::to_string(decimal.exponent);
  T result = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), result);
  if (error == std::errc::result_out_of_range) {
    result = decimal.exponent > 0 ? std::numeric_limits<T>::infinity() : 0;
  } else if (end == digits.data()) {
    result = 0;
  }
  return decimal.isNegative ? -result : result;
}

// The whole part of the magnitude; false if it is beyond `limit`.
bool wholePart(const Decimal& decimal, std::uint64_t limit, std::uint64_t& whole) {
  Wide value = wideOf(decimal);
  for (int i = decimal.exponent; i < 0 && value != 0; ++i) value /= 10;
  for (int i = 0; i < decimal.exponent && value <= limit; ++i) value *= 10;
  whole = static_cast<std::uint64_t>(value);
  return value <= limit;
}

// What parse collects.
struct Digits {
  Wide value = 0;
  int count = 0;
  int exponent = 0;
  // What was behind the digits that are kept: the first digit, and whether any other was not 0.
  int firstDropped = -1;
  bool isRestZero = true;

  void add(int digit, bool isBehindPoint) {
    if (count < Decimal::mostDigits) {
      value = value * 10 + static_cast<unsigned>(digit);
      if (value != 0) ++count;
      if (isBehindPoint) --exponent;
      return;
    }
    if (firstDropped < 0) {
      firstDropped = digit;
    } else {
      isRestZero = isRestZero && digit == 0;
    }
    if (!isBehindPoint) ++exponent;
  }

  void round() {
    const bool isOdd = (value & 1) != 0;
    if (firstDropped > 5 || (firstDropped == 5 && (!isRestZero || isOdd))) ++value;
    while (value != 0 && value % 10 == 0) {
      value /= 10;
      ++exponent;
    }
  }
};

// Reads an exponent to the text's end; false if there is none.
bool readExponent(std::string_view text, int& exponent) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return false;
  }
  const char* const first = text.data();
  const char* const end = first + text.size();
  const auto [stop, error] = std::from_chars(first, end, exponent);
  if (stop != end || text.empty()) return false;
  constexpr int far = 1'000'000'000;
  if (error == std::errc::result_out_of_range) exponent = text.starts_with('-') ? -far : far;
  exponent = std::clamp(exponent, -far, far);
  return error == std::errc() || error == std::errc::result_out_of_range;
}

}  // namespace

Optional<Decimal> Decimal::parse(std::string_view text) {
  Decimal result;
  std::size_t i = 0;
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
    result.isNegative = text[0] == '-';
    ++i;
  }
  Digits digits;
  bool isBehindPoint = false;
  bool hasDigit = false;
  for (; i < text.size(); ++i) {
    if (isDigit(text[i])) {
      hasDigit = true;
      digits.add(text[i] - '0', isBehindPoint);
    } else if (text[i] == '.' && !isBehindPoint) {
      isBehindPoint = true;
    } else {
      break;
    }
  }
  if (!hasDigit) return {};
  if (i < text.size()) {
    int exponent = 0;
    if (text[i] != 'e' && text[i] != 'E') return {};
    if (!readExponent(text.substr(i + 1), exponent)) return {};
    digits.exponent += exponent;
  }
  digits.round();
  if (digits.value != 0 && digits.exponent + mostDigits > highestExponent) return {};
  if (digits.value == 0 || digits.exponent < -highestExponent) return Decimal{};
  result.digitsLow = static_cast<std::uint64_t>(digits.value);
  result.digitsHigh = static_cast<std::uint64_t>(digits.value >> 64);
  result.exponent = digits.exponent;
  return result;
}

std::string Decimal::text() const {
  std::string digits = digitsOf(wideOf(*this));
  if (digits.empty()) return "0";
  std::string result = isNegative ? "-" : "";
  const int count = static_cast<int>(digits.size());
  const int point = count + exponent;
  constexpr int longestWhole = 309;  // as long as the largest double
  if (exponent >= 0 && point <= longestWhole) {
    return result + digits + std::string(static_cast<std::size_t>(exponent), '0');
  }
  if (exponent < 0 && point > 0) {
    return result + digits.insert(static_cast<std::size_t>(point), 1, '.');
  }
  if (exponent < 0 && point > -mostDigits) {
    return result + "0." + std::string(static_cast<std::size_t>(-point), '0') + digits;
  }
  if (count > 1) digits.insert(1, 1, '.');
  result += digits;
  result += point > 0 ? "e+" : "e-";
  return result + std::to_string(std::abs(point - 1));
}

double Decimal::toDouble() const { return nearest<double>(*this); }

float Decimal::toFloat() const { return nearest<float>(*this); }

std::int64_t Decimal::toSigned() const {
  using Limits = std::numeric_limits<std::int64_t>;
  std::uint64_t whole = 0;
  if (!wholePart(*this, static_cast<std::uint64_t>(Limits::max()), whole)) {
    return isNegative ? Limits::min() : Limits::max();
  }
  const auto magnitude = static_cast<std::int64_t>(whole);
  return isNegative ? -magnitude : magnitude;
}

std::uint64_t Decimal::toUnsigned() const {
  if (isNegative) return 0;
  constexpr std::uint64_t highest = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t whole = 0;
  return wholePart(*this, highest, whole) ? whole : highest;
}

DigitForm DigitForm::of(const Decimal& decimal) {
  std::string digits = digitsOf(wideOf(decimal));
  const int exponent = static_cast<int>(digits.size()) + decimal.exponent;
  return digitForm(std::move(digits), exponent, decimal.isNegative);
}

DigitForm DigitForm::of(double finite) {
  // No double has more digits than 767; this form is exact.
  char text[800];
  const auto end =
      std::to_chars(text, text + sizeof text, std::abs(finite), std::chars_format::scientific, 767)
          .ptr;
  const char* mark = std::find(text, end, 'e');
  int exponent = 0;
  std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
  return digitForm(text[0] + std::string(text + 2, static_cast<std::size_t>(mark - text - 2)),
                   exponent + 1, std::signbit(finite));
}

DigitForm DigitForm::ofInteger(std::uint64_t magnitude, bool isNegative) {
  std::string digits = digitsOf(magnitude);
  const int exponent = static_cast<int>(digits.size());
  return digitForm(std::move(digits), exponent, isNegative);
}

int compare(const DigitForm& a, const DigitForm& b) {
  const auto sign = [](const DigitForm& form) {
    return form.digits.empty() ? 0 : form.isNegative ? -1 : 1;
  };
  if (sign(a) != sign(b)) return sign(a) - sign(b);
  if (sign(a) == 0) return 0;
  const int magnitude =
      a.exponent != b.exponent ? a.exponent - b.exponent : a.digits.compare(b.digits);
  return sign(a) * magnitude;
}

}  // namespace tolvanite::detail
