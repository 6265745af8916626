#if defined(TOLVANITE_PEER_BOOST)

#include <string>
#include <string_view>
#include <vector>

#include <boost/algorithm/string/replace.hpp>
#include <boost/algorithm/string/split.hpp>

#include "../StringsDriver.h"

namespace bench {
namespace {

struct Boost {
  using Text = std::string;
  static Text prepared(std::string_view text) { return Text(text); }
  static std::vector<std::string> splitOwned(const Text& text) {
    std::vector<std::string> result;
    boost::algorithm::split(result, text, [](char byte) { return byte == ','; });
    return result;
  }
  static Text replaced(const Text& text, const Text& of, const Text& with) {
    return boost::algorithm::replace_all_copy(text, of, with);
  }
};

const bool registered = registerStrings<Boost>("boost");

}  // namespace
}  // namespace bench

#endif
