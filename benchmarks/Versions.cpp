#include <string>
#include <utility>

#include <Tolvanite/Text/Version.h>

#include "VersionsDriver.h"

namespace bench {
namespace {

struct Ours {
  using Value = tolvanite::Version;

  static bool read(const std::string& text, Value& value) {
    auto result = Value::fromText(text);
    if (!result) return false;
    value = *std::move(result);
    return true;
  }
  static std::string print(const Value& value) { return value.description(); }
  static std::uint64_t patchOf(const Value& value) {
    return static_cast<std::uint64_t>(value.patch());
  }
  static std::size_t identifierCountOf(const Value& value) {
    return value.prereleaseIdentifiers().size();
  }
};

const bool registered = registerVersions<Ours>("tolvanite");

}  // namespace
}  // namespace bench
