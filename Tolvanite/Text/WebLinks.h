// The web links in running text, as its reader sees them.
//
//   for (const WebLink& link : webLinks("See example.org/a_(b) (or https://example.com)."))
//     std::cout << link.location << '\n';      // http://example.org/a_(b), https://example.com
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/IndexRange.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A link found in a text.
struct WebLink {
  /// Where it stands, in bytes.
  IndexRange range;
  /// The link with a scheme: "http://" stands before one that was written without.
  std::string location;

  /// The location.
  std::string description() const { return location; }

  friend bool operator==(const WebLink&, const WebLink&) = default;
  friend std::ostream& operator<<(std::ostream& out, const WebLink& link) {
    return out << link.location;
  }
};

/// The links of a text in its order; no two of them overlap. Found are
///
/// - "http://" or "https://", in any case, with a host behind it,
/// - "www." with a domain behind it,
/// - a domain alone whose last label is one that the web uses, as "example.org". Endings that files
///   have too, as in "notes.md", are taken for one only when a "/" follows; so are those that are
///   words when they are capitalized, as in "We left.No".
///
/// A link goes on with port, path, query and fragment, up to white space, a quotation mark, a long
/// dash, "<" or ">", a closing bracket that it did not open, or a "," or ";" before another
/// "http://" or "https://"; punctuation at its end belongs to the sentence.
/// Mail addresses are no links, and neither are parts of words or of paths. Linear in the text.
TOLVANITE_EXPORT std::vector<WebLink> webLinks(std::string_view text);

}  // namespace tolvanite
