#include <Tolvanite/Text/Affixes.h>

#include <algorithm>

#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

namespace {

using CaseMapping = std::string(std::string_view);

std::string firstCharacterMapped(std::string_view text, CaseMapping& mapping) {
  const std::string_view first = characterPrefix(text, 1);
  return mapping(first).append(text.substr(first.size()));
}

}  // namespace

void dropPrefix(std::string& text, std::string_view s) {
  if (text.starts_with(s)) text.erase(0, s.size());
}

void dropSuffix(std::string& text, std::string_view s) {
  if (text.ends_with(s)) text.resize(text.size() - s.size());
}

std::string droppingPrefix(std::string_view text, std::string_view s) {
  return std::string(text.substr(text.starts_with(s) ? s.size() : 0));
}

std::string droppingSuffix(std::string_view text, std::string_view s) {
  return std::string(text.substr(0, text.size() - (text.ends_with(s) ? s.size() : 0)));
}

std::string tvStringByRemovingPrefix(std::string_view text, std::string_view s) {
  return droppingPrefix(text, s);
}

std::string tvStringByRemovingSuffix(std::string_view text, std::string_view s) {
  return droppingSuffix(text, s);
}

void ensurePrefix(std::string& text, std::string_view s) { text = ensuringPrefix(text, s); }

void ensureSuffix(std::string& text, std::string_view s) {
  if (!text.ends_with(s)) text.append(s);
}

std::string ensuringPrefix(std::string_view text, std::string_view s) {
  return std::string(text.starts_with(s) ? "" : s).append(text);
}

std::string ensuringSuffix(std::string_view text, std::string_view s) {
  return std::string(text).append(text.ends_with(s) ? "" : s);
}

Optional<CommonPrefix> hasCommonPrefix(std::string_view text, std::string_view other) {
  // A character of one text may go on in the other, so that both are read by characters; what they
  // have in common by bytes ends within the last of these at most.
  const auto places = std::ranges::mismatch(text, other);
  const auto common = static_cast<std::size_t>(places.in1 - text.begin());
  std::size_t length = 0;
  for (Int count = characterCount(text.substr(0, common)); count > 0; --count) {
    length = characterPrefix(text, count).size();
    if (length <= common && characterPrefix(other, count).size() == length) break;
    length = 0;
  }
  if (length == 0) return {};
  return CommonPrefix{std::string(text.substr(0, length)), std::string(text.substr(length)),
                      std::string(other.substr(length))};
}

bool lessThen(std::string_view text, std::string_view other, std::string_view ignoringPrefix) {
  return lessThen(text, other, ignoringPrefix, characterCount(ignoringPrefix));
}

bool lessThen(std::string_view text, std::string_view other, std::string_view ignoringPrefix,
              Int prefixLength) {
  const auto cut = [&](std::string_view whole) {
    if (!whole.starts_with(ignoringPrefix)) return whole;
    return droppingFirstCharacters(whole, prefixLength);
  };
  return cut(text) < cut(other);
}

std::string capitalizingFirstLetter(std::string_view text) {
  return firstCharacterMapped(text, uppercased);
}

std::string capitalizedFirstCharacterString(std::string_view text) {
  return capitalizingFirstLetter(text);
}

std::string lowercasingFirstLetter(std::string_view text) {
  return firstCharacterMapped(text, lowercased);
}

std::string lowercasedFirstCharacterString(std::string_view text) {
  return lowercasingFirstLetter(text);
}

std::string firstLetterString(std::string_view text) {
  return std::string(characterPrefix(text, 1));
}

}  // namespace tolvanite
