#include <Tolvanite/Text/Substrings.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/detail/CodePoints.h>
#include <Tolvanite/Text/detail/TextSearch.h>

namespace tolvanite {

namespace {

// The text from the character `start` on. Fatal if there is no such place.
std::string_view behind(std::string_view text, Int start, std::source_location location) {
  if (start < 0) fatalFailure("Negative offset: " + std::to_string(start), location);
  const auto [offset, missing] = detail::placeBehindCharacters(text, start);
  if (missing > 0) fatalIndexOutOfRange(start, start - missing, location);
  return text.substr(offset);
}

// What stands before and behind the first occurrence of `s`.
struct Parts {
  std::string_view before, after;
};

Parts partsAround(std::string_view text, std::string_view s) {
  const std::size_t place = detail::findText(text, s);
  if (place == std::string_view::npos) return {text, {}};
  return {text.substr(0, place), text.substr(place + s.size())};
}

}  // namespace

std::string tvSubstringFrom(std::string_view text, Int start, Int withLength,
                            std::source_location location) {
  const std::string_view rest = behind(text, start, location);
  const std::string_view unused = behind(rest, withLength, location);
  return std::string(rest.substr(0, rest.size() - unused.size()));
}

std::string tvStringFrom(std::string_view text, Int from, Int length,
                         std::source_location location) {
  return tvSubstringFrom(text, from, length, location);
}

std::string tvSubstringAt(std::string_view text, Int index, std::source_location location) {
  return tvSubstringFrom(text, index, 1, location);
}

std::string tvStringAt(std::string_view text, Int at, std::source_location location) {
  return tvSubstringAt(text, at, location);
}

std::string tvSubstringToString(std::string_view text, std::string_view s) {
  return std::string(partsAround(text, s).before);
}

std::string tvSubstringUpToFirstOccurrenceOf(std::string_view text, std::string_view s,
                                             Int startOffset, std::source_location location) {
  return std::string(partsAround(behind(text, startOffset, location), s).before);
}

std::string tvStringUpTo(std::string_view text, std::string_view upTo, Int startOffset,
                         std::source_location location) {
  return tvSubstringUpToFirstOccurrenceOf(text, upTo, startOffset, location);
}

std::string tvSubstringAfterFirstOccurrenceOf(std::string_view text, std::string_view s,
                                              Int startOffset, std::source_location location) {
  return std::string(partsAround(behind(text, startOffset, location), s).after);
}

std::string tvStringAfter(std::string_view text, std::string_view after, Int startOffset,
                          std::source_location location) {
  return tvSubstringAfterFirstOccurrenceOf(text, after, startOffset, location);
}

Optional<std::string> subscriptRange(std::string_view text, const IndexRange& range) {
  if (range.lowerBound() < 0) return {};
  const auto start = detail::placeBehindCharacters(text, range.lowerBound());
  if (start.missing > 0) return {};
  const std::string_view rest = text.substr(start.offset);
  const auto end = detail::placeBehindCharacters(rest, range.count());
  if (end.missing > 0) return {};
  return std::string(rest.substr(0, end.offset));
}

std::string subscriptRangeForced(std::string_view text, const IndexRange& range,
                                 std::source_location location) {
  Optional<std::string> result = subscriptRange(text, range);
  if (result.isNone()) {
    fatalFailure("Range " + range.description() + " out of bounds", location);
  }
  return *std::move(result);
}

}  // namespace tolvanite
