#include <Tolvanite/Text/CharacterFiltering.h>

#include <cstddef>

#include <Tolvanite/Frame/detail/CodePoints.h>

namespace tolvanite {

namespace {

// Reads what stands at `position`, and tells whether it is of the set.
bool readsMember(std::string_view text, std::size_t& position, const CharacterSet& set) {
  const std::int32_t codePoint = detail::readCodePointInline(text, position);
  return codePoint != detail::malformed && set.contains(static_cast<char32_t>(codePoint));
}

std::string replaced(std::string_view text, const std::vector<IndexRange>& ranges,
                     std::string_view with) {
  std::string result;
  result.reserve(text.size());
  std::size_t start = 0;
  for (const IndexRange& range : ranges) {
    result += text.substr(start, static_cast<std::size_t>(range.lowerBound()) - start);
    result += with;
    start = static_cast<std::size_t>(range.upperBound());
  }
  return result += text.substr(start);
}

}  // namespace

std::vector<IndexRange> rangesOfCharacters(std::string_view text, const CharacterSet& in) {
  std::vector<IndexRange> result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = position;
    if (readsMember(text, position, in)) {
      result.emplace_back(static_cast<Int>(start), static_cast<Int>(position));
    }
  }
  return result;
}

std::string stringByReplacingCharacterFromSet(std::string_view text, const CharacterSet& set,
                                              std::string_view with) {
  return replaced(text, rangesOfCharacters(text, set), with);
}

std::string stringByReplacingContinuousCharacterFromSet(std::string_view text,
                                                        const CharacterSet& set,
                                                        std::string_view with) {
  return replaced(text, IndexRange::mergeAdjacentRanges(rangesOfCharacters(text, set)), with);
}

std::string tvStringByStrippingCharactersInSet(std::string_view text, const CharacterSet& set) {
  return stringByReplacingContinuousCharacterFromSet(text, set, "");
}

std::string tvStringByKeepingCharactersInSet(std::string_view text, const CharacterSet& set) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = position;
    if (readsMember(text, position, set)) result += text.substr(start, position - start);
  }
  return result;
}

std::string_view trimmed(std::string_view text, const CharacterSet& set) {
  std::size_t start = text.size(), end = text.size();
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t before = position;
    if (readsMember(text, position, set)) continue;
    if (start == text.size()) start = before;
    end = position;
  }
  return text.substr(start, end - start);
}

bool containsOnlyCharacters(std::string_view text, const CharacterSet& in) {
  for (std::size_t position = 0; position < text.size();) {
    if (!readsMember(text, position, in)) return false;
  }
  return true;
}

bool containsNoCharacters(std::string_view text, const CharacterSet& of) {
  for (std::size_t position = 0; position < text.size();) {
    if (readsMember(text, position, of)) return false;
  }
  return true;
}

bool isBase32(std::string_view text) {
  return containsOnlyCharacters(text, CharacterSet::base32());
}

std::string tvSanetizeFilename(std::string_view text) {
  return stringByReplacingCharacterFromSet(text, CharacterSet::tvInvalidForFilesystemCharacterSet(),
                                           "_");
}

std::string tvSanetizeFilenameWeaker(std::string_view text) {
  return stringByReplacingCharacterFromSet(
      text, CharacterSet::tvWeakerInvalidForFilesystemCharacterSet(), "_");
}

std::string tvSanetizeFilenameWeaker_Old(std::string_view text) {
  return tvStringByStrippingCharactersInSet(
      text, CharacterSet::tvWeakerInvalidForFilesystemCharacterSet());
}

}  // namespace tolvanite
