// Hands anything to the string toolkit, and holds what it gives against what is known of it
// whatever the text is.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Text/Affixes.h>
#include <Tolvanite/Text/CharacterFiltering.h>
#include <Tolvanite/Text/Composing.h>
#include <Tolvanite/Text/Containment.h>
#include <Tolvanite/Text/Hexadecimal.h>
#include <Tolvanite/Text/HtmlEntities.h>
#include <Tolvanite/Text/Padding.h>
#include <Tolvanite/Text/PathTexts.h>
#include <Tolvanite/Text/RandomTexts.h>
#include <Tolvanite/Text/ReadingTexts.h>
#include <Tolvanite/Text/Replacing.h>
#include <Tolvanite/Text/SearchTerms.h>
#include <Tolvanite/Text/SourceLiterals.h>
#include <Tolvanite/Text/Splitting.h>
#include <Tolvanite/Text/Substrings.h>
#include <Tolvanite/Text/UnicodeNames.h>
#include <Tolvanite/Text/WebLinks.h>

namespace {

using namespace tolvanite;

// Unlike assert, this is never compiled out.
void require(bool holds) {
  if (!holds) std::abort();
}

template <typename Pieces>
std::string joined(const Pieces& pieces, std::string_view separator = {}) {
  std::string result;
  bool isFirst = true;
  for (const auto& piece : pieces) {
    if (!isFirst) result += separator;
    isFirst = false;
    result += piece;
  }
  return result;
}

void characterOffsets(std::string_view text, Int offset) {
  const auto all = characters(text);
  const auto count = static_cast<Int>(all.size());
  require(joined(all) == text);
  require(characterCount(text) == count);
  require(std::ranges::none_of(all, [](std::string_view piece) { return piece.empty(); }));
  offset %= count + 1;
  const std::string first = tvSubstringFrom(text, 0, offset);
  require(first == characterPrefix(text, offset));
  require(first == joined(std::vector(all.begin(), all.begin() + static_cast<long>(offset))));
  require(first + tvStringFrom(text, offset, count - offset) == text);
  require(subscriptRange(text, {offset, count}) == subscriptRangeForced(text, {offset, count}));
  require(subscriptRange(text, {offset, count + 1}).isNone());
  if (offset < count) require(tvStringAt(text, offset) == all[static_cast<std::size_t>(offset)]);
  require(tvSubstringAt(std::string(text) + "\n.", characterCount(std::string(text) + "\n")) ==
          ".");
  require(std::string(droppingLastCharacters(text, offset)) +
              std::string(characterSuffix(text, offset)) ==
          text);
}

void splits(std::string_view text, std::string_view other, Int offset) {
  const auto components = componentsSeparatedBy(text, other);
  const auto count = static_cast<Int>(components.size());
  require(joined(components, other) == text);
  require(joined(split(text, other), other) == text);
  require(joined(componentsSeparatedByKeeping(text, other)) == text);
  require(componentsSeparatedBy(text, other, count).isSome());
  require(componentsSeparatedByStringTrimmed(text, other, CharacterSet(other)).size() ==
          components.size());
  const auto [before, behind] = tvSplitAtFirstOccurrenceOf(text, other);
  const bool occurs = splitDividedAt(text, other).isSome();
  require(occurs == (count > 1));
  require(before + (occurs ? std::string(other) : "") + behind == text);
  require(componentsDividedAt(text, other).first == tvSubstringToString(text, other));
  require(tvStringAfter(text, other) == behind);
  offset %= characterCount(text) + 1;
  const std::string rest(droppingFirstCharacters(text, offset));
  require(tvStringUpTo(text, other, offset) == tvSubstringToString(rest, other));
  require(tvSubstringAfterFirstOccurrenceOf(text, other, offset) == tvStringAfter(rest, other));
  require(numberOfLines(text) == static_cast<Int>(componentsByNL(text).size()));
  require(numberOfNonEmptyLines(text) <= numberOfLines(text));
  require(joined(componentsByD(text), "◊") == text && joined(splitByCS(text), ", ") == text);
  require(joined(components, "<>") == stringByReplacingOccurrences(text, other, "<>") ||
          other.empty());
}

void affixes(std::string_view text, std::string_view other) {
  const std::string both = std::string(text) + std::string(other);
  require(droppingSuffix(both, other) == text && droppingPrefix(both, text) == other);
  require(ensuringPrefix(both, text) == both && ensuringSuffix(both, other) == both);
  std::string changed(text);
  ensurePrefix(changed, other);
  require(changed.starts_with(other) && changed.ends_with(text));
  dropPrefix(changed, changed);
  require(changed.empty());
  if (const auto common = hasCommonPrefix(text, other)) {
    require(!common->prefix.empty());
    require(common->prefix + common->remainder == text);
    require(common->prefix + common->otherRemainder == other);
    require(characterCount(common->prefix) + characterCount(common->remainder) ==
            characterCount(text));
  }
  require(!lessThen(text, text, other));
  capitalizingFirstLetter(text);
  lowercasingFirstLetter(text);
  require(text.starts_with(firstLetterString(text)));
}

void widths(std::string_view text, std::string_view other, Int width) {
  const Int missing = std::max<Int>(0, width - characterCount(text));
  const auto size = text.size() + static_cast<std::size_t>(missing);
  require(paddedLeft(text, width, "0").size() == size);
  require(paddedBoth(text, width, "0").size() == size);
  require(paddedRight(text, width, "0") == std::string(text).append(size - text.size(), '0'));
  require(paddedRight(text, width, other).starts_with(text));
  require(paddedLeft(text, width, other).ends_with(text));
  require(paddedBoth(text, width, other).find(text) != std::string::npos);
  const Int fieldWidth = characterCount(other);
  if (characterCount(text) >= fieldWidth) {
    require(overwritten(other, text) == characterPrefix(text, fieldWidth));
    require(paddedLeft(text, other) == characterSuffix(text, fieldWidth));
  } else {
    require(overwritten(other, text).starts_with(text));
    require(paddedLeft(text, other).ends_with(text));
  }
  overwritten(width, text, false);
}

void sets(std::string_view text, std::string_view other) {
  const CharacterSet set(other), others = set.inverted();
  const std::string stripped = tvStringByStrippingCharactersInSet(text, set);
  const std::string kept = tvStringByKeepingCharactersInSet(text, set);
  require(stripped.size() + kept.size() == text.size());
  require(containsNoCharacters(stripped, set) || !isValidUtf8(text));
  require(containsOnlyCharacters(kept, set));
  require(others.inverted() == set && (set | others) == CharacterSet().inverted());
  const auto ranges = rangesOfCharacters(text, set);
  const std::string replaced = stringByReplacingCharacterFromSet(text, set, "-");
  require(replaced.size() == stripped.size() + ranges.size());
  require(stringByReplacingContinuousCharacterFromSet(text, set, "-").size() <= replaced.size());
  require(text.find(trimmed(text, set)) != std::string_view::npos);
  require(containsNoCharacters(tvSanetizeFilename(text),
                               CharacterSet::tvInvalidForFilesystemCharacterSet()));
  require(tvSanetizeFilenameWeaker(text).size() == text.size());
  require(tvSanetizeFilenameWeaker_Old(text).size() <= text.size());
  isBase32(text);
}

void encodings(std::string_view text, std::string_view other) {
  require(utf8HexStringRepresentation(text).size() == 2 * text.size());
  const std::string scalars = scalarsHexRepresentation(text, {.prefix = "U+", .separator = " "});
  const auto back = stringFromScalarsHexString(scalars, " ", "U+");
  require(back.isSome() && (*back == text || !isValidUtf8(text)));
  require(utf16HexStringRepresentation(text) == utf16HexStringRepresentation(*back));
  require(unicodeNames(text) == unicodeNames(*back));
  require(unicodeNamesEmojiFiltered(text).size() <= text.size());
  if (const auto numbers = uint32sFromHexString(text, other)) fromUint32s(*numbers, other);
  require(decodeHTML(tvEscapeHtml(text)) == text);
  require(decodeHTML(text).size() <= text.size());
  require(decodeHTML(scalarsHtmlEntitiesRepresentation(text)) == *back);
  require(stringLiteralEncoded(text).size() ==
          text.size() + static_cast<std::size_t>(std::ranges::count(text, '\\')));
  require(stringPreparedForStringLiteral(text).find('\n') == std::string::npos);
}

void readings(std::string_view text, std::string_view other) {
  tvInt(text);
  tvDouble(text);
  require(!isUuidString(text) || text.size() == 36);
  require(isCharacterTristate(text, text, other) == true);
  for (const bool ignoreCase : {false, true}) {
    for (const bool ignoreDiacritic : {false, true}) {
      require(tvContains(text, text, ignoreCase, ignoreDiacritic));
      tvContains(text, other, ignoreCase, ignoreDiacritic);
    }
  }
  const SearchTerms terms = extractSearchTerms(text);
  require(terms.terms.size() + terms.taggedTerms.size() == componentsByS(text).size());
  Int last = 0;
  for (const WebLink& link : webLinks(text)) {
    require(link.range.lowerBound() >= last && !link.range.isEmpty());
    last = link.range.upperBound();
    require(link.location.ends_with(text.substr(static_cast<std::size_t>(link.range.lowerBound()),
                                                static_cast<std::size_t>(link.range.count()))));
  }
  require(last <= static_cast<Int>(text.size()));
}

void paths(std::string_view text, std::string_view other) {
  require(stringByReplacingLastPathComponentWith(text, other).ends_with(other));
  tvStringByReplacingPathExtension(text, other);
  tvStringByAppendingPathComponents(text, {std::string(other), std::string(text)});
  tvAppendSuffixAtEndOfNameAndBeforeExtension(text, other);
  tvStringWithLowercasedExtension(text);
  const auto parts = extractBaseNameAndSixLetterSuffixAndExtension(text);
  const auto part = [](const char* start, const Optional<std::string>& held) {
    return held ? start + *held : std::string();
  };
  std::string whole(text);
  while (whole.size() > 1 && whole.ends_with('/')) whole.pop_back();
  require(parts.basename + part("_", parts.suffix) + part(".", parts.ext) == whole);
}

void composition(std::string_view text, std::string_view other) {
  require(wrapIn(text, other).size() == text.size() + 2 * other.size());
  require(wrapInQuotes(text).size() == text.size() + 2);
  require(stringWhenMoreThan(text, 0).isSome() == stringWhenNotEmpty(text).isSome());
  require(withFormat("%s%@", std::string(text), std::string(other)) ==
          std::string(text) + std::string(other));
  withFormat("%9s|%-9.3s|", std::string(text), std::string(other));
  require(characterCount(other) == 0 ||
          tvRandomAlphanumericString(other, 3).size() <= 3 * other.size());
}

}  // namespace

// The first byte is a number, the second says where the second of two texts starts.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const Int number = data[0];
  // Memory of just the right size, so that a look outside of the texts is seen.
  const std::vector<char> bytes(data + 2, data + size);
  const std::size_t cut = bytes.size() - std::min<std::size_t>(data[1], bytes.size());
  const std::vector<char> first(bytes.begin(), bytes.begin() + static_cast<long>(cut));
  const std::vector<char> second(bytes.begin() + static_cast<long>(cut), bytes.end());
  const std::string_view text(first.data(), first.size()), other(second.data(), second.size());
  characterOffsets(text, number);
  splits(text, other, number);
  affixes(text, other);
  widths(text, other, number);
  sets(text, other);
  encodings(text, other);
  readings(text, other);
  paths(text, other);
  composition(text, other);
  return 0;
}
