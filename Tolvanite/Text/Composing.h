// Texts made from others: wrapped, extended, joined or formatted, and texts that may be absent.
//
//   wrapIn("b", "<", ">")                                "<b>"
//   combineTwoOptionals("Ann", std::nullopt, " ")        "Ann"
//   withFormat("%-6s|%5.2f|%@", "ab", 2.5, list)         "ab    | 2.50|[1, 2]"
#pragma once

#include <concepts>
#include <optional>
#include <source_location>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The text between two others, or between twice the same.
/// @{
TOLVANITE_EXPORT std::string wrapIn(std::string_view text, std::string_view s);
TOLVANITE_EXPORT std::string wrapIn(std::string_view text, std::string_view a, std::string_view b);
/// @}

/// The text between double quotes. What is in it is not escaped.
TOLVANITE_EXPORT std::string wrapInQuotes(std::string_view text);

/// The text with `s` behind it when the condition holds, else unchanged.
TOLVANITE_EXPORT std::string appending(std::string_view text, std::string_view s, bool condition);

/// The text, or absent when it is empty, or has not more than `count` characters.
/// @{
TOLVANITE_EXPORT Optional<std::string> stringWhenNotEmpty(std::string_view text);
TOLVANITE_EXPORT Optional<std::string> stringWhenMoreThan(std::string_view text, Int count);
/// @}

/// Both texts with the separator between them; the one that is there; absent when none is.
TOLVANITE_EXPORT Optional<std::string> combineTwoOptionals(const Optional<std::string>& s1,
                                                           const Optional<std::string>& s2,
                                                           std::string_view separator);

/// The text form of the value; `nilReturnValue` when it is absent.
template <HasTextForm T>
std::string tvFromOptional(const std::optional<T>& value, std::string_view nilReturnValue) {
  return value.has_value() ? textForm(*value) : std::string(nilReturnValue);
}

/// The number of characters; absent for an absent text.
TOLVANITE_EXPORT Optional<Int> tvCount(const Optional<std::string>& text);

namespace detail {

struct FormatArgument {
  std::variant<long long, unsigned long long, double, std::string> value;
  std::string (*textForm)(const void*);
  const void* source;
};

template <typename T>
FormatArgument formatArgument(const T& value) {
  FormatArgument result{
      {}, [](const void* source) { return textForm(*static_cast<const T*>(source)); }, &value};
  if constexpr (std::same_as<T, bool> || std::signed_integral<T>) {
    result.value = static_cast<long long>(value);
  } else if constexpr (std::unsigned_integral<T>) {
    result.value = static_cast<unsigned long long>(value);
  } else if constexpr (std::floating_point<T>) {
    result.value = static_cast<double>(value);
  } else {
    result.value = textForm(value);
  }
  return result;
}

TOLVANITE_EXPORT std::string formatted(std::string_view format,
                                       std::span<const FormatArgument> arguments,
                                       std::source_location location);

// A format and where it is used.
struct FormatText {
  template <std::convertible_to<std::string_view> Text>
  FormatText(const Text& text, std::source_location at = std::source_location::current())
      : format(text), location(at) {}

  std::string_view format;
  std::source_location location;
};

}  // namespace detail

/// The format with its conversions replaced by the arguments. Conversions are those of `printf`,
/// with flags, width, precision and positions ("%2$s"), and "%@" and "%s" for the text form of any
/// value, whose width and precision count user-perceived characters; what tells the size of an
/// argument, as in "%ld", is skipped. A format that does not fit its arguments is fatal: "Format
/// FORMAT: " and what is wrong.
template <HasTextForm... Arguments>
std::string withFormat(const detail::FormatText& format, const Arguments&... arguments) {
  const std::vector<detail::FormatArgument> all{detail::formatArgument(arguments)...};
  return detail::formatted(format.format, all, format.location);
}

}  // namespace tolvanite
