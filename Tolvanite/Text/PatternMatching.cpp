#include <Tolvanite/Text/PatternMatching.h>

#include <algorithm>
#include <utility>

#include <Tolvanite/Text/Regex.h>

namespace tolvanite {

namespace {

// Without the marks at the end that belong to the sentence around the link.
std::string_view trimmedLink(std::string_view link) {
  constexpr std::string_view closing = ")]}";
  constexpr std::string_view opening = "([{";
  while (!link.empty()) {
    const char last = link.back();
    const std::size_t bracket = closing.find(last);
    if (bracket != std::string_view::npos) {
      if (std::ranges::count(link, opening[bracket]) >= std::ranges::count(link, last)) break;
    } else if (std::string_view(".,;:!?'*_").find(last) == std::string_view::npos) {
      break;
    }
    link.remove_suffix(1);
  }
  return link;
}

}  // namespace

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
  static const Regex links(
      R"re((?<![\p{L}\p{N}@./])(?:https?://|www\.)[\p{L}\p{N}\[][^\s<>"“”‘’«»]*)re",
      RegexOptions::caseInsensitive);
  std::vector<std::string> result;
  for (const std::string& found : links.matchingsOf(text)) {
    const bool hasScheme = found.front() == 'h' || found.front() == 'H';
    result.push_back((hasScheme ? "" : "http://") + std::string(trimmedLink(found)));
  }
  return result;
}

}  // namespace tolvanite
