// Short ways to what a pattern finds in a text, and the web links in a text.
//
//   tvMatchSingle("width: 20 mm", R"((\d+) mm)")            // "20"
//   tvMatch("20x30", R"((\d+)x(\d+))")                      // "20", "30"
//   extractHttpLinks("See www.example.org (or https://example.com/a).")
//                              // "http://www.example.org", "https://example.com/a"
//
// A pattern that is used often is better kept as a `Regex`: these compile it at each call. They
// throw a `RegexError` for one that does not compile.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The first group of the first match. Absent if nothing matches, and if the pattern has no group
/// or its first took no part.
TOLVANITE_EXPORT Optional<std::string> tvMatchSingle(std::string_view text,
                                                     std::string_view pattern);

/// The groups of the first match, without the whole match; a group that took no part is absent.
/// Empty if nothing matches.
TOLVANITE_EXPORT std::vector<Optional<std::string>> tvMatch(std::string_view text,
                                                            std::string_view pattern);

/// Whatever begins with "http:" or "https:", up to the next white space: what stands between
/// brackets or ends a sentence comes with the mark behind it.
TOLVANITE_EXPORT std::vector<std::string> extractHttpLinksCustomRegEx(std::string_view text);

/// The links as a reader sees them, in order, each with a scheme: those that `webLinks` finds (see
/// Text/WebLinks.h, which also tells where they stand).
TOLVANITE_EXPORT std::vector<std::string> extractHttpLinks(std::string_view text);

}  // namespace tolvanite
