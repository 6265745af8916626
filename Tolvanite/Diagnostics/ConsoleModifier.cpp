#include <Tolvanite/Diagnostics/ConsoleModifier.h>

namespace tolvanite {

std::string ConsoleModifier::fragments() const {
  std::string result;
  if (contains(bold)) result += "1;";
  if (contains(blinking)) result += "5;";
  if (contains(inversed)) result += "7;";
  if (contains(underscored)) result += "4;";
  return result;
}

}  // namespace tolvanite
