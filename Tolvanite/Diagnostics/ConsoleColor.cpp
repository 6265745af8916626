#include <Tolvanite/Diagnostics/ConsoleColor.h>

#include <algorithm>
#include <array>

namespace tolvanite {

std::span<const ConsoleColor> ConsoleColor::all() {
  static constexpr std::array colors{
      black,    red,      green,      brown,  blue,      purple,      cyan,      lightGray,
      darkGray, lightRed, lightGreen, yellow, lightBlue, lightPurple, lightCyan, white};
  return colors;
}

Optional<ConsoleColor> ConsoleColor::fromRawValue(std::string_view rawValue) {
  const auto colors = all();
  const auto found = std::ranges::find(colors, rawValue, &ConsoleColor::rawValue);
  return found == colors.end() ? Optional<ConsoleColor>() : *found;
}

}  // namespace tolvanite
