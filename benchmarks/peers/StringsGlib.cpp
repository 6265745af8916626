#if defined(TOLVANITE_PEER_GTK)

#include <memory>
#include <string>
#include <string_view>

#include <glib.h>

#include "../StringsDriver.h"

namespace bench {
namespace {

struct Free {
  void operator()(char* text) const { g_free(text); }
};

struct Glib {
  using Text = std::string;
  static Text prepared(std::string_view text) { return Text(text); }
  static std::unique_ptr<char, Free> escaped(const Text& text) {
    return std::unique_ptr<char, Free>(
        g_markup_escape_text(text.data(), static_cast<gssize>(text.size())));
  }
};

const bool registered = registerStrings<Glib>("glib");

}  // namespace
}  // namespace bench

#endif
