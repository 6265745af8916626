// Reads anything as the text of a symbolic path, and holds what was read against what such a text
// means, told here a second time in the plainest way.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <Tolvanite/Foundation/Pascription.h>

namespace {

using tolvanite::Pascription;

// Unlike assert, this is never compiled out.
void require(bool holds) {
  if (!holds) std::abort();
}

std::vector<std::string> piecesOf(const std::string& text) {
  std::vector<std::string> result;
  std::istringstream stream(text);
  for (std::string piece; std::getline(stream, piece, '/');) {
    if (!piece.empty()) result.push_back(piece);
  }
  return result;
}

bool isToken(const std::string& piece) {
  static const std::set<std::string> tokens = {
      "$HD$",       "$HOME$",   "$DESKTOP$", "$DOCUMENTS$", "$AS$",   "$APPLICATION_SUPPORT$",
      "$ASMBI$",    "$CACHES$", "$xHD$",     "$TEMP$",      "$TBRD$", "$MBRD$",
      "$CACHESMBI$"};
  return tokens.contains(piece);
}

bool hasGroupBytes(const std::string& piece) {
  return piece.size() >= 8 && piece.starts_with("$GROUP$") && piece.ends_with('$');
}

bool isPlain(const std::string& text) {
  return std::ranges::all_of(text,
                             [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

void requireMeaning(const Pascription& read, const std::string& text,
                    const std::vector<std::string>& pieces) {
  const std::vector<std::string> below(pieces.begin() + 1, pieces.end());
  require(read.components == below);
  require(isToken(pieces[0]) || hasGroupBytes(pieces[0]));
  if (!isToken(pieces[0])) {
    const std::string identifier = pieces[0].substr(7, pieces[0].size() - 8);
    require(read.base() == Pascription::Base::appGroup(identifier));
  }

  std::string list;
  for (const auto& component : below) list += (list.empty() ? "" : ",") + component;
  require(read.description() == "TvPathDescription(" + read.base().description() + " " +
                                    std::to_string(below.size()) + " components: " + list + ")");

  require(Pascription(text) == read);
  require(*Pascription::tryParse("//" + text + "/") == read);
  require(Pascription(read.base(), below) == read);

  // A description that holds the root's text as its first component can be appended to.
  const Pascription whole(Pascription::Base::temp, pieces);
  std::vector<std::string> longer = below;
  longer.insert(longer.end(), {"x", "y"});
  require(whole.pascriptionByAppending() == read);
  require(whole.pascriptionByAppending("x//y") == Pascription(read.base(), longer));
  require(whole.append2("x", "/y") == Pascription(read.base(), longer));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> pieces = piecesOf(text);
  const auto read = Pascription::tryParse(text);
  if (read) {
    require(!pieces.empty());
    requireMeaning(*read, text, pieces);
  } else if (!pieces.empty()) {
    // The "$" of a group's text may be part of a larger character only where there are marks.
    require(!isToken(pieces[0]) && !(hasGroupBytes(pieces[0]) && isPlain(pieces[0])));
  }
  return 0;
}
