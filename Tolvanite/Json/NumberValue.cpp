#include <Tolvanite/Json/NumberValue.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <type_traits>

#include <Tolvanite/Json/detail/Nodes.h>
#include <Tolvanite/Json/detail/NumberText.h>
#include <Tolvanite/Json/detail/Numbers.h>

namespace tolvanite {

namespace detail {

namespace {

int sign(auto a, decltype(a) b) { return a < b ? -1 : a > b ? 1 : 0; }

bool isReal(const Cell& cell) { return cell.tag() == CellTag::real; }
bool isDecimal(const Cell& cell) { return cell.tag() == CellTag::decimal; }

// An integer as one of either sign.
struct Whole {
  bool isNegative;
  std::uint64_t word;

  explicit Whole(const Cell& cell)
      : isNegative(cell.tag() == CellTag::signedInteger && cell.integer() < 0), word(cell.low()) {}
  std::uint64_t magnitude() const { return isNegative ? -word : word; }
};

int compareWhole(const Whole& a, const Whole& b) {
  if (a.isNegative != b.isNegative) return a.isNegative ? -1 : 1;
  return sign(a.word, b.word);  // in two's complement, of one sign
}

int compareWholeWithReal(const Whole& a, double b) {
  if (std::isnan(b)) return 1;
  if (b >= 0x1p64) return -1;
  if (b < -0x1p63) return 1;
  // Now the whole part of the double is an integer of 64 bits.
  const double floor = std::floor(b);
  if (a.isNegative != (floor < 0)) return a.isNegative ? -1 : 1;
  const auto whole = floor < 0 ? static_cast<std::uint64_t>(static_cast<std::int64_t>(floor))
                               : static_cast<std::uint64_t>(floor);
  const int order = sign(a.word, whole);
  return order == 0 && b > floor ? -1 : order;
}

int compareReals(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return sign(!std::isnan(a), !std::isnan(b));
  return sign(a, b);
}

DigitForm digitForm(const Cell& cell) {
  if (isDecimal(cell)) return DigitForm::of(decimalOf(cell));
  if (isReal(cell)) return DigitForm::of(cell.realNumber());
  const Whole whole(cell);
  return DigitForm::ofInteger(whole.magnitude(), whole.isNegative);
}

int compareByDigits(const Cell& a, const Cell& b) {
  for (const Cell* real : {&a, &b}) {
    if (!isReal(*real) || std::isfinite(real->realNumber())) continue;
    const int order = real->realNumber() > 0 ? 1 : -1;  // what is no number is the least
    return real == &a ? order : -order;
  }
  return compare(digitForm(a), digitForm(b));
}

double toDouble(const Cell& cell) {
  switch (cell.tag()) {
    case CellTag::real:
      return cell.realNumber();
    case CellTag::decimal:
      return decimalOf(cell).toDouble();
    case CellTag::signedInteger:
      return static_cast<double>(cell.integer());
    default:
      return static_cast<double>(cell.low());
  }
}

template <typename T>
T saturated(double value) {
  using Limits = std::numeric_limits<T>;
  if (std::isnan(value)) return 0;
  // The upper bound is a power of two, which a double holds, unlike the highest value itself.
  if (value >= std::ldexp(1.0, Limits::digits)) return Limits::max();
  if (value <= static_cast<double>(Limits::min())) return Limits::min();
  return static_cast<T>(value);
}

template <typename T>
T saturated(const Decimal& decimal) {
  using Limits = std::numeric_limits<T>;
  if constexpr (std::is_unsigned_v<T>) {
    return static_cast<T>(std::min<std::uint64_t>(decimal.toUnsigned(), Limits::max()));
  } else {
    return static_cast<T>(
        std::clamp<std::int64_t>(decimal.toSigned(), Limits::min(), Limits::max()));
  }
}

}  // namespace

int compareNumbers(const Cell& a, const Cell& b) noexcept {
  if (isDecimal(a) || isDecimal(b)) return compareByDigits(a, b);
  if (isReal(a) && isReal(b)) return compareReals(a.realNumber(), b.realNumber());
  if (isReal(b)) return compareWholeWithReal(Whole(a), b.realNumber());
  if (isReal(a)) return -compareWholeWithReal(Whole(b), a.realNumber());
  return compareWhole(Whole(a), Whole(b));
}

std::size_t hashOfNumber(const Cell& number) noexcept {
  // Numbers of one value have one nearest double; of what is no number there are several forms.
  const double nearest = toDouble(number);
  return std::isnan(nearest) ? 0 : std::hash<double>()(nearest);
}

}  // namespace detail

using detail::CellTag;

Optional<NumberValue> NumberValue::decimal(std::string_view text) {
  const Optional<detail::Decimal> read = detail::Decimal::parse(text);
  if (read.isNone()) return {};
  return NumberValue(detail::makeDecimal(*read));
}

const NumberValue& NumberValue::sharedTrue() {
  static const NumberValue number(true);
  return number;
}

const NumberValue& NumberValue::sharedFalse() {
  static const NumberValue number(false);
  return number;
}

NumberValue::Kind NumberValue::kind() const noexcept {
  switch (cell_.tag()) {
    case CellTag::boolean:
      return Kind::boolean;
    case CellTag::unsignedInteger:
      return Kind::unsignedInteger;
    case CellTag::real:
      return Kind::real;
    case CellTag::decimal:
      return Kind::decimal;
    default:
      return Kind::signedInteger;
  }
}

template <typename T>
T NumberValue::narrowed() const noexcept {
  if (detail::isReal(cell_)) return detail::saturated<T>(cell_.realNumber());
  if (detail::isDecimal(cell_)) return detail::saturated<T>(detail::decimalOf(cell_));
  return static_cast<T>(cell_.low());
}

bool NumberValue::boolValue() const noexcept { return compare(0) != Order::same; }
std::int8_t NumberValue::charValue() const noexcept { return narrowed<std::int8_t>(); }
std::uint8_t NumberValue::unsignedCharValue() const noexcept { return narrowed<std::uint8_t>(); }
std::int16_t NumberValue::shortValue() const noexcept { return narrowed<std::int16_t>(); }
std::uint16_t NumberValue::unsignedShortValue() const noexcept { return narrowed<std::uint16_t>(); }
std::int32_t NumberValue::intValue() const noexcept { return narrowed<std::int32_t>(); }
std::uint32_t NumberValue::unsignedIntValue() const noexcept { return narrowed<std::uint32_t>(); }
std::int64_t NumberValue::longLongValue() const noexcept { return narrowed<std::int64_t>(); }
std::uint64_t NumberValue::unsignedLongLongValue() const noexcept {
  return narrowed<std::uint64_t>();
}
double NumberValue::nearestDouble() const noexcept { return detail::toDouble(cell_); }
float NumberValue::floatValue() const noexcept {
  // By way of a double, integers and decimals would be rounded twice.
  switch (cell_.tag()) {
    case CellTag::real:
      return static_cast<float>(cell_.realNumber());
    case CellTag::decimal:
      return detail::decimalOf(cell_).toFloat();
    case CellTag::signedInteger:
      return static_cast<float>(cell_.integer());
    default:
      return static_cast<float>(cell_.low());
  }
}

std::string NumberValue::stringValue() const {
  if (isBool()) return cell_.low() != 0 ? "true" : "false";
  if (detail::isDecimal(cell_)) return detail::decimalOf(cell_).text();
  char text[detail::numberTextRoom];
  char* end = detail::writeNumber(text, cell_);
  return {text, end};
}

NumberValue::Order NumberValue::compare(const NumberValue& other) const noexcept {
  const int order = detail::compareNumbers(cell_, other.cell_);
  return order < 0 ? Order::ascending : order > 0 ? Order::descending : Order::same;
}

std::ostream& operator<<(std::ostream& out, const NumberValue& number) {
  return out << number.stringValue();
}

}  // namespace tolvanite

std::size_t std::hash<tolvanite::NumberValue>::operator()(
    const tolvanite::NumberValue& number) const noexcept {
  return tolvanite::detail::hashOfNumber(number.cell());
}
