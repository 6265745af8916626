#include <Tolvanite/Text/Composing.h>

#include <charconv>
#include <cstdlib>
#include <utility>

#include <fmt/printf.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/Padding.h>

namespace tolvanite {

std::string wrapIn(std::string_view text, std::string_view s) { return wrapIn(text, s, s); }

std::string wrapIn(std::string_view text, std::string_view a, std::string_view b) {
  std::string result;
  result.reserve(a.size() + text.size() + b.size());
  return result.append(a).append(text).append(b);
}

std::string wrapInQuotes(std::string_view text) { return wrapIn(text, "\""); }

std::string appending(std::string_view text, std::string_view s, bool condition) {
  return std::string(text).append(condition ? s : "");
}

Optional<std::string> stringWhenNotEmpty(std::string_view text) {
  if (text.empty()) return {};
  return std::string(text);
}

Optional<std::string> stringWhenMoreThan(std::string_view text, Int count) {
  if (characterCount(text) <= count) return {};
  return std::string(text);
}

Optional<std::string> combineTwoOptionals(const Optional<std::string>& s1,
                                          const Optional<std::string>& s2,
                                          std::string_view separator) {
  if (!s1) return s2;
  return s2 ? wrapIn(separator, *s1, *s2) : s1;
}

Optional<Int> tvCount(const Optional<std::string>& text) {
  if (!text) return {};
  return characterCount(*text);
}

namespace {

using Arguments = std::span<const detail::FormatArgument>;

// What stands between "%" and the letter of a conversion, each empty when it isn't there.
struct ConversionForm {
  std::string flags, width, precision;  // The precision with its ".".

  std::string printf(char kind) const { return "%" + flags + width + precision + kind; }
};

// Goes through a format once.
class Formatter {
 public:
  Formatter(std::string_view format, Arguments arguments, std::source_location location)
      : format_(format), arguments_(arguments), location_(location) {}

  std::string text() {
    std::string result;
    while (place_ < format_.size()) {
      const std::size_t percent = std::min(format_.find('%', place_), format_.size());
      result += format_.substr(place_, percent - place_);
      place_ = percent + 1;
      if (percent == format_.size()) break;
      if (peek() == '%') {
        result += '%';
        ++place_;
      } else {
        result += conversion();
      }
    }
    return result;
  }

 private:
  [[noreturn]] void fail(const std::string& reason) const {
    fatalFailure("Format " + std::string(format_) + ": " + reason, location_);
  }

  char peek() const { return place_ < format_.size() ? format_[place_] : '\0'; }

  std::string takeAll(std::string_view accepted) {
    const std::size_t end = std::min(format_.find_first_not_of(accepted, place_), format_.size());
    return std::string(format_.substr(std::exchange(place_, end), end - place_));
  }

  const detail::FormatArgument& argument(std::size_t index) const {
    if (index >= arguments_.size()) fail("an argument is missing");
    return arguments_[index];
  }

  // Digits, or the next argument for "*".
  std::string number() {
    if (peek() != '*') return takeAll("0123456789");
    ++place_;
    const auto* value = std::get_if<long long>(&argument(next_++).value);
    if (value == nullptr) fail("a width is no integer");
    return std::to_string(*value);
  }

  std::string conversion() {
    const std::size_t start = place_;
    const std::string digits = takeAll("0123456789");
    std::size_t index = 0;
    const bool isPlaced = peek() == '$';
    if (isPlaced) {
      std::from_chars(digits.data(), digits.data() + digits.size(), index);
      if (index == 0) fail("positions start at 1");
      ++place_;
    } else {
      place_ = start;
    }
    ConversionForm form;
    form.flags = takeAll("-+ #0");
    form.width = number();
    if (peek() == '.') {
      ++place_;
      form.precision = '.' + number();
      // None, as in printf.
      if (form.precision.starts_with(".-")) form.precision.clear();
    }
    takeAll("hlqjztL");
    const char kind = peek();
    ++place_;
    return converted(form, kind, argument(isPlaced ? index - 1 : next_++));
  }

  Int count(std::string_view digits) const {
    int result = 0;
    if (digits.empty()) return result;
    const auto error = std::from_chars(digits.data(), digits.data() + digits.size(), result).ec;
    if (error != std::errc()) fail("number is too big");
    return result;
  }

  // Width and precision count user-perceived characters.
  std::string convertedText(const ConversionForm& form, std::string_view whole) const {
    std::string_view shown = whole;
    if (!form.precision.empty()) shown = characterPrefix(whole, count(form.precision.substr(1)));
    const Int width = count(form.width);
    const bool isLeft = width < 0 || form.flags.find('-') != std::string::npos;
    return tvStringPadToLength(shown, std::abs(width), " ", isLeft);
  }

  std::string converted(const ConversionForm& form, char kind,
                        const detail::FormatArgument& argument) const try {
    constexpr std::string_view floating = "eEfFgGaA", whole = "diuoxXc";
    if (kind == '@' || kind == 's') return convertedText(form, argument.textForm(argument.source));
    const bool isFloating = floating.find(kind) != std::string_view::npos;
    if (!isFloating && whole.find(kind) == std::string_view::npos) {
      fail("there is no conversion \"" + std::string(1, kind) + "\"");
    }
    return std::visit(
        [&]<typename Value>(const Value& value) -> std::string {
          if constexpr (std::integral<Value>) {
            if (isFloating) return fmt::sprintf(form.printf(kind), static_cast<double>(value));
            return fmt::sprintf(form.printf(kind), value);
          } else if constexpr (std::floating_point<Value>) {
            if (isFloating) return fmt::sprintf(form.printf(kind), value);
          }
          fail("\"" + std::string(1, kind) + "\" does not take " +
               argument.textForm(argument.source));
        },
        argument.value);
  } catch (const fmt::format_error& error) {
    fail(error.what());
  }

  std::string_view format_;
  Arguments arguments_;
  std::source_location location_;
  std::size_t place_ = 0;
  std::size_t next_ = 0;
};

}  // namespace

std::string detail::formatted(std::string_view format, Arguments arguments,
                              std::source_location location) {
  return Formatter(format, arguments, location).text();
}

}  // namespace tolvanite
