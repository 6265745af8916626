#include <Tolvanite/Text/ReadingTexts.h>

#include <cmath>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/QInt128.h>
#include <Tolvanite/Text/detail/WholeNumber.h>

namespace tolvanite {

namespace {

template <typename Number>
Optional<Number> numberIn(std::string_view text) {
  // The standard library reads a minus sign only.
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return {};
  }
  return detail::wholeNumber<Number>(text);
}

}  // namespace

Optional<double> tvDouble(std::string_view text) {
  // The standard library reads "inf" and "nan" too.
  const Optional<double> number = numberIn<double>(text);
  if (number && !std::isfinite(*number)) return {};
  return number;
}

Optional<double> makeDouble(std::string_view text) { return tvDouble(text); }

Optional<Int> tvInt(std::string_view text) { return numberIn<Int>(text); }

Optional<Int> makeInt(std::string_view text) { return tvInt(text); }

Optional<bool> isCharacterTristate(std::string_view text, std::string_view trueCharacter,
                                   std::string_view falseCharacter, bool lowercaseSource) {
  const std::string source = lowercaseSource ? lowercased(text) : std::string(text);
  if (source == trueCharacter) return true;
  if (source == falseCharacter) return false;
  return std::nullopt;
}

bool isUuidString(std::string_view text) { return QInt128::fromUuidString(text).isSome(); }

}  // namespace tolvanite
