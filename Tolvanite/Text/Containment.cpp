#include <Tolvanite/Text/Containment.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Frame/detail/ByteBlock.h>
#include <Tolvanite/Frame/detail/CodePoints.h>
#include <Tolvanite/Text/detail/TextSearch.h>

namespace tolvanite {

namespace {

struct Options {
  bool ignoreCase;
  bool ignoreDiacritic;
};

void requireSuccess(UErrorCode status) {
  if (U_FAILURE(status)) fatalFailure(std::string("Can't normalize: ") + u_errorName(status));
}

// Accents, tone marks and vowel points; but no signs that make another letter, whose combining
// classes are lower (nuktas, the voicing marks of kana, viramas), nor the vowels of Telugu, Thai,
// Lao and Tibetan that are written above or below a letter.
bool isDiacritic(UChar32 codePoint) {
  constexpr int lastOfLetters = 9;
  constexpr std::array<int, 7> vowels{84, 91, 103, 118, 129, 130, 132};
  const int combiningClass = u_getCombiningClass(codePoint);
  return u_charType(codePoint) == U_NON_SPACING_MARK && combiningClass > lastOfLetters &&
         std::ranges::find(vowels, combiningClass) == vowels.end();
}

icu::UnicodeString withoutDiacritics(const icu::UnicodeString& decomposed) {
  icu::UnicodeString result;
  for (std::int32_t i = 0; i < decomposed.length(); i = decomposed.moveIndex32(i, 1)) {
    const UChar32 codePoint = decomposed.char32At(i);
    if (!isDiacritic(codePoint)) result.append(codePoint);
  }
  return result;
}

void appendFolded(std::string& result, std::string_view wellFormed, Options options) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::StringPiece piece(wellFormed.data(), static_cast<std::int32_t>(wellFormed.size()));
  icu::UnicodeString text = icu::UnicodeString::fromUTF8(piece);
  const auto* const decomposing = icu::Normalizer2::getNFDInstance(status);
  const auto* const composing = icu::Normalizer2::getNFCInstance(status);
  requireSuccess(status);
  text = decomposing->normalize(text, status);
  if (options.ignoreDiacritic) text = withoutDiacritics(text);
  if (options.ignoreCase) text.foldCase();
  composing->normalize(text, status).toUTF8String(result);
  requireSuccess(status);
}

// The text in the form by which it is compared. Malformed sequences stay as they are.
std::string folded(std::string_view text, Options options) {
  if (detail::isAscii(text)) return options.ignoreCase ? lowercased(text) : std::string(text);
  // A stretch must fit ICU's 32-bit lengths, with room for texts that grow.
  constexpr std::size_t longestStretch = std::size_t{1} << 27;
  std::string result;
  std::size_t start = 0;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t before = position;
    const bool isMalformed = detail::readCodePointInline(text, position) == detail::malformed;
    if (!isMalformed && position - start < longestStretch) continue;
    appendFolded(result, text.substr(start, before - start), options);
    if (isMalformed) result += text.substr(before, position - before);
    start = isMalformed ? position : before;
  }
  appendFolded(result, text.substr(start), options);
  return result;
}

}  // namespace

bool tvContains(std::string_view text, std::string_view substring, bool ignoreCase,
                bool ignoreDiacritic) {
  const Options options{ignoreCase, ignoreDiacritic};
  const std::string wanted = folded(substring, options);
  return wanted.empty() || detail::findText(folded(text, options), wanted) != std::string::npos;
}

}  // namespace tolvanite
