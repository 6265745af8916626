#include <Tolvanite/Diagnostics/ConsoleModifier.h>

#include <array>
#include <string_view>

namespace tolvanite {

namespace {

struct Member {
  ConsoleModifier modifier;
  std::string_view name;
  std::string_view fragment;
};

constexpr std::array members{
    Member{ConsoleModifier::bold, "bold", "1;"},
    Member{ConsoleModifier::blinking, "blinking", "5;"},
    Member{ConsoleModifier::inversed, "inversed", "7;"},
    Member{ConsoleModifier::underscored, "underscored", "4;"},
};

}  // namespace

std::string ConsoleModifier::fragments() const {
  std::string result;
  for (const Member& member : members) {
    if (contains(member.modifier)) result += member.fragment;
  }
  return result;
}

std::string ConsoleModifier::description() const {
  std::string result = "[";
  for (const Member& member : members) {
    if (!contains(member.modifier)) continue;
    if (result.size() > 1) result += ", ";
    result += member.name;
  }
  return result + "]";
}

}  // namespace tolvanite
