// The sixteen colours of a terminal, by their ANSI codes.
//
//   ConsoleColor::lightRed.rawValue()      "91"
//   ConsoleColor::fromRawValue("91")       lightRed
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// One of the sixteen colours; there are no others.
class TOLVANITE_EXPORT ConsoleColor {
 public:
  /// What begins a sequence.
  static constexpr std::string_view ESCAPE = "\x1b[";
  /// The whole sequence that ends colours and modifiers.
  static constexpr std::string_view RESET = "\x1b[0m";

  /// The colours.
  /// @{
  static const ConsoleColor black, red, green, brown, blue, purple, cyan, lightGray;
  static const ConsoleColor darkGray, lightRed, lightGreen, yellow, lightBlue, lightPurple,
      lightCyan, white;
  /// @}

  /// All colours in the order of their codes, from black to white.
  static std::span<const ConsoleColor> all();

  /// The colour of that code; absent for any other text.
  static Optional<ConsoleColor> fromRawValue(std::string_view rawValue);

  /// The ANSI code, "30" to "37" and "90" to "97".
  constexpr std::string_view rawValue() const { return rawValue_; }

  /// The name, as "lightRed".
  std::string description() const { return std::string(name_); }

  constexpr bool operator==(const ConsoleColor& other) const {
    return rawValue_ == other.rawValue_;
  }
  /// By the codes, as `all` is.
  constexpr auto operator<=>(const ConsoleColor& other) const {
    return rawValue_ <=> other.rawValue_;
  }
  friend std::ostream& operator<<(std::ostream& out, const ConsoleColor& color) {
    return out << color.name_;
  }

 private:
  constexpr ConsoleColor(std::string_view name, std::string_view rawValue)
      : name_(name), rawValue_(rawValue) {}

  std::string_view name_;
  std::string_view rawValue_;
};

inline constexpr ConsoleColor ConsoleColor::black{"black", "30"};
inline constexpr ConsoleColor ConsoleColor::red{"red", "31"};
inline constexpr ConsoleColor ConsoleColor::green{"green", "32"};
inline constexpr ConsoleColor ConsoleColor::brown{"brown", "33"};
inline constexpr ConsoleColor ConsoleColor::blue{"blue", "34"};
inline constexpr ConsoleColor ConsoleColor::purple{"purple", "35"};
inline constexpr ConsoleColor ConsoleColor::cyan{"cyan", "36"};
inline constexpr ConsoleColor ConsoleColor::lightGray{"lightGray", "37"};
inline constexpr ConsoleColor ConsoleColor::darkGray{"darkGray", "90"};
inline constexpr ConsoleColor ConsoleColor::lightRed{"lightRed", "91"};
inline constexpr ConsoleColor ConsoleColor::lightGreen{"lightGreen", "92"};
inline constexpr ConsoleColor ConsoleColor::yellow{"yellow", "93"};
inline constexpr ConsoleColor ConsoleColor::lightBlue{"lightBlue", "94"};
inline constexpr ConsoleColor ConsoleColor::lightPurple{"lightPurple", "95"};
inline constexpr ConsoleColor ConsoleColor::lightCyan{"lightCyan", "96"};
inline constexpr ConsoleColor ConsoleColor::white{"white", "97"};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::ConsoleColor> {
  std::size_t operator()(const tolvanite::ConsoleColor& color) const noexcept {
    return std::hash<std::string_view>()(color.rawValue());
  }
};
