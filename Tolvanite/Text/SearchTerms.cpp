#include <Tolvanite/Text/SearchTerms.h>

#include <Tolvanite/Text/CharacterSet.h>
#include <Tolvanite/Text/Splitting.h>

namespace tolvanite {

SearchTerms extractSearchTerms(std::string_view text) {
  SearchTerms result;
  for (std::string& piece :
       componentsSeparatedByStringTrimmed(text, " ", CharacterSet::whitespacesAndNewlines())) {
    if (auto tagged = componentsSeparatedByIntoTwoPartsNilIfNotFound(piece, ":")) {
      result.taggedTerms.push_back(*std::move(tagged));
    } else {
      result.terms.push_back(std::move(piece));
    }
  }
  return result;
}

}  // namespace tolvanite
