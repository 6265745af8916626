#include <Tolvanite/Diagnostics/TextColoring.h>

#include <algorithm>
#include <array>

#include <fmt/format.h>

namespace tolvanite {

std::string cc(std::string_view text, ConsoleColor color) {
  return fmt::format("{}0;{}m{}{}", ConsoleColor::ESCAPE, color.rawValue(), text,
                     ConsoleColor::RESET);
}

std::string cc(std::string_view text, const Optional<ConsoleColor>& color) {
  return color ? cc(text, *color) : std::string(text);
}

std::string cc(std::string_view text, ConsoleColor color, ConsoleModifier modifiers) {
  return fmt::format("{}{}{}m{}{}", ConsoleColor::ESCAPE, modifiers.fragments(), color.rawValue(),
                     text, ConsoleColor::RESET);
}

}  // namespace tolvanite
