#include <string>
#include <string_view>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/HtmlEntities.h>
#include <Tolvanite/Text/Padding.h>
#include <Tolvanite/Text/Replacing.h>
#include <Tolvanite/Text/Splitting.h>

#include "StringsDriver.h"

namespace bench {
namespace {

struct Tolvanite {
  using Text = std::string;
  static Text prepared(std::string_view text) { return Text(text); }

  static std::size_t graphemes(const Text& text) {
    return static_cast<std::size_t>(tolvanite::characterCount(text));
  }
  static auto escaped(const Text& text) { return tolvanite::tvEscapeHtml(text); }
  static auto unescaped(const Text& text) { return tolvanite::decodeHTML(text); }
  static auto splitViews(const Text& text) { return tolvanite::split(text, ","); }
  static auto splitOwned(const Text& text) { return tolvanite::componentsSeparatedBy(text, ","); }
  static auto padded(const Text& text) { return tolvanite::paddedRight(text, 40, " "); }
  static auto replaced(const Text& text, const Text& of, const Text& with) {
    return tolvanite::stringByReplacingOccurrences(text, of, with);
  }
};

const bool registered = registerStrings<Tolvanite>("tolvanite");

}  // namespace
}  // namespace bench
