#include <Tolvanite/Text/PatternMatching.h>

#include <utility>

#include <Tolvanite/Text/Regex.h>
#include <Tolvanite/Text/WebLinks.h>

namespace tolvanite {

Optional<std::string> tvMatchSingle(std::string_view text, std::string_view pattern) {
  auto groups = Regex(pattern).groupsOfFirstMatch(text);
  if (groups.size() < 2) return {};
  return std::move(groups[1]);
}

std::vector<Optional<std::string>> tvMatch(std::string_view text, std::string_view pattern) {
  auto groups = Regex(pattern).groupsOfFirstMatch(text);
  if (!groups.empty()) groups.erase(groups.begin());
  return groups;
}

std::vector<std::string> extractHttpLinksCustomRegEx(std::string_view text) {
  static const Regex links = R"((http[s]?:[^\s]*))"_regex;
  return links.matchingsOf(text);
}

std::vector<std::string> extractHttpLinks(std::string_view text) {
  std::vector<std::string> result;
  for (WebLink& link : webLinks(text)) result.push_back(std::move(link.location));
  return result;
}

}  // namespace tolvanite
