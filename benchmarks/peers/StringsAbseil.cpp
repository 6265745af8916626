#if defined(TOLVANITE_PEER_ABSL_STRINGS) && defined(TOLVANITE_PEER_ABSL_FORMAT)

#include <string>
#include <string_view>
#include <vector>

#include <absl/strings/str_format.h>
#include <absl/strings/str_replace.h>
#include <absl/strings/str_split.h>

#include "../StringsDriver.h"

namespace bench {
namespace {

struct Abseil {
  using Text = std::string;
  static Text prepared(std::string_view text) { return Text(text); }

  static Text escaped(const Text& text) {
    return absl::StrReplaceAll(text,
                               {{"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}, {"\"", "&quot;"}});
  }
  static Text unescaped(const Text& text) {
    return absl::StrReplaceAll(text,
                               {{"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}});
  }
  static std::vector<absl::string_view> splitViews(const Text& text) {
    return absl::StrSplit(text, ',');
  }
  static std::vector<std::string> splitOwned(const Text& text) { return absl::StrSplit(text, ','); }
  static Text padded(const Text& text) { return absl::StrFormat("%-40s", text); }
  static Text replaced(const Text& text, const Text& of, const Text& with) {
    return absl::StrReplaceAll(text, {{of, with}});
  }
};

const bool registered = registerStrings<Abseil>("absl");

}  // namespace
}  // namespace bench

#endif
