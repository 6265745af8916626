// What a person types into a search field, taken apart.
//
//   const auto [terms, tagged] = extractSearchTerms("waltz artist:Ann live");
//   // terms: "waltz", "live"; tagged: {"artist", "Ann"}
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The terms of a search, in text order.
struct SearchTerms {
  /// The plain terms, which may be empty texts.
  std::vector<std::string> terms;
  /// The tagged terms as pairs of key and value, each of which may be empty.
  std::vector<std::pair<std::string, std::string>> taggedTerms;

  friend bool operator==(const SearchTerms&, const SearchTerms&) = default;
};

/// Splits the text at blanks and takes the white space from both ends of each piece. A piece with a
/// ":" is a tagged term, the key before the first ":" and the value behind it; every other piece is
/// a plain term, deliberately also the empty one that an empty text or a repeated blank gives.
TOLVANITE_EXPORT SearchTerms extractSearchTerms(std::string_view text);

}  // namespace tolvanite
