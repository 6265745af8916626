// The names that the Unicode standard gives to the characters of a text.
//
//   unicodeName(U'é')                    "LATIN SMALL LETTER E WITH ACUTE"
//   unicodeName("é!")                    "LATIN SMALL LETTER E WITH ACUTE,EXCLAMATION MARK"
//   unicodeNamesEmojiFiltered("👍🏽")      {"THUMBS UP SIGN"}
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The name of a Unicode scalar. What has no name of its own has a form in its place, as
/// "<control-0009>"; a number that is no code point has the empty text.
TOLVANITE_EXPORT std::string unicodeName(char32_t scalar);

/// The names of the text's scalars, joined with ",". A malformed sequence shows as U+FFFD.
TOLVANITE_EXPORT std::string unicodeName(std::string_view text);

/// The names of the text's scalars but for those that begin with one of the prefixes.
TOLVANITE_EXPORT std::vector<std::string> unicodeNames(
    std::string_view text, std::span<const std::string_view> ignoredCodePointNamePrefixes = {});

/// The names without those of what only shapes or joins emoji, and of the letters of flags: those
/// that begin with "ZERO WIDTH JOINER", "VARIATION SELECTOR-16", "EMOJI MODIFIER" or "REGIONAL
/// INDICATOR SYMBOL".
TOLVANITE_EXPORT std::vector<std::string> unicodeNamesEmojiFiltered(std::string_view text);

}  // namespace tolvanite
