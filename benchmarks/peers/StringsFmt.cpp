#if defined(TOLVANITE_PEER_FMT)

#include <string>
#include <string_view>

#include <fmt/format.h>

#include "../StringsDriver.h"

namespace bench {
namespace {

struct Fmt {
  using Text = std::string;
  static Text prepared(std::string_view text) { return Text(text); }
  static Text padded(const Text& text) { return fmt::format("{:<40}", text); }
};

const bool registered = registerStrings<Fmt>("fmt");

}  // namespace
}  // namespace bench

#endif
