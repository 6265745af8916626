#include <Tolvanite/Text/Splitting.h>

#include <Tolvanite/Text/CharacterFiltering.h>
#include <Tolvanite/Text/detail/TextSearch.h>

namespace tolvanite {

namespace {

// Calls `visit` with each component in order.
template <typename Visit>
void visitComponents(std::string_view text, std::string_view separator, Visit visit) {
  std::size_t start = 0;
  detail::visitOccurrences(text, separator, 0, [&](std::size_t place) {
    visit(text.substr(start, place - start));
    start = place + separator.size();
    return true;
  });
  visit(text.substr(start));
}

// Memory for all the components at once is worth a pass of its own that counts them.
template <typename Text>
std::vector<Text> componentsAs(std::string_view text, std::string_view separator) {
  std::vector<Text> result;
  result.reserve(detail::countOccurrences(text, separator) + 1);
  visitComponents(text, separator, [&](std::string_view component) {
    result.emplace_back(component.data(), component.size());
  });
  return result;
}

}  // namespace

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
  return componentsAs<std::string_view>(text, separator);
}

std::vector<std::string> componentsSeparatedBy(std::string_view text, std::string_view separator) {
  return componentsAs<std::string>(text, separator);
}

Optional<std::vector<std::string>> componentsSeparatedBy(std::string_view text,
                                                         std::string_view separator,
                                                         Int expectedCount) {
  const auto count = static_cast<Int>(detail::countOccurrences(text, separator)) + 1;
  if (count != expectedCount) return {};
  return componentsSeparatedBy(text, separator);
}

std::vector<std::string> componentsSeparatedByKeeping(std::string_view text,
                                                      std::string_view separator) {
  std::vector<std::string> result;
  visitComponents(text, separator, [&](std::string_view component) {
    if (!result.empty()) result.emplace_back(separator);
    result.emplace_back(component);
  });
  return result;
}

std::vector<std::string> componentsSeparatedByStringTrimmed(std::string_view text,
                                                            std::string_view separator,
                                                            const CharacterSet& set) {
  std::vector<std::string> result;
  visitComponents(text, separator, [&](std::string_view component) {
    result.emplace_back(trimmed(component, set));
  });
  return result;
}

std::vector<std::string> componentsByD(std::string_view text) {
  return componentsSeparatedBy(text, "◊");
}

std::vector<std::string> componentsByC(std::string_view text) {
  return componentsSeparatedBy(text, ",");
}

std::vector<std::string> componentsByS(std::string_view text) {
  return componentsSeparatedBy(text, " ");
}

std::vector<std::string> componentsByCS(std::string_view text) {
  return componentsSeparatedBy(text, ", ");
}

std::vector<std::string> componentsByNL(std::string_view text) {
  return componentsSeparatedBy(text, "\n");
}

std::vector<std::string_view> splitByCS(std::string_view text) { return split(text, ", "); }

Optional<std::pair<std::string, std::string>> componentsSeparatedByIntoTwoPartsNilIfNotFound(
    std::string_view text, std::string_view s) {
  const auto parts = splitDividedAt(text, s);
  if (parts.isNone()) return {};
  return std::pair(std::string(parts->first), std::string(parts->second));
}

std::pair<std::string, std::string> componentsSeparatedByIntoTwoParts(std::string_view text,
                                                                      std::string_view s) {
  return componentsSeparatedByIntoTwoPartsNilIfNotFound(text, s).whenNil(
      [&] { return std::pair(std::string(text), std::string()); });
}

std::pair<std::string, std::string> componentsDividedAt(std::string_view text, std::string_view s) {
  return componentsSeparatedByIntoTwoParts(text, s);
}

std::pair<std::string, std::string> tvSplitAtFirstOccurrenceOf(std::string_view text,
                                                               std::string_view s) {
  return componentsSeparatedByIntoTwoParts(text, s);
}

Optional<std::pair<std::string_view, std::string_view>> splitDividedAt(std::string_view text,
                                                                       std::string_view s) {
  const std::size_t place = detail::findText(text, s);
  if (place == std::string_view::npos) return {};
  return std::pair(text.substr(0, place), text.substr(place + s.size()));
}

Int numberOfLines(std::string_view text) {
  return static_cast<Int>(detail::countOccurrences(text, "\n")) + 1;
}

Int numberOfNonEmptyLines(std::string_view text) {
  Int count = 0;
  visitComponents(text, "\n", [&](std::string_view line) { count += line.empty() ? 0 : 1; });
  return count;
}

bool hasMultipleLines(std::string_view text) { return text.find('\n') != std::string_view::npos; }

}  // namespace tolvanite
