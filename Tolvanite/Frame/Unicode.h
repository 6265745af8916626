// Texts by user-perceived characters, and case mapping. A character is an extended grapheme
// cluster of the Unicode standard: a letter with its combining marks, a flag, an emoji family or
// a carriage return with its line feed is one.
//
//   characterCount("häagen 👩‍👩‍👧")          8
//   characterPrefix("🇩🇪🇫🇷!", 1)             "🇩🇪"
//   uppercased("straße")                   "STRASSE"
//
// Texts are UTF-8. Bytes that are not are never an error here: each malformed sequence counts as
// a character of its own, and is copied as it is. What is returned as a view points into the
// argument. Every operation is linear in the length of its text, and cheap for plain ASCII.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The number of characters.
TOLVANITE_EXPORT Int characterCount(std::string_view text);

/// The characters in order; joined they are the text again.
TOLVANITE_EXPORT std::vector<std::string_view> characters(std::string_view text);

/// The first `count` characters; the whole text when it has no more. A negative count is fatal.
TOLVANITE_EXPORT std::string_view characterPrefix(std::string_view text, Int count);

/// The last `count` characters; the whole text when it has no more. A negative count is fatal.
TOLVANITE_EXPORT std::string_view characterSuffix(std::string_view text, Int count);

/// What `characterPrefix` of the same arguments leaves over.
TOLVANITE_EXPORT std::string_view droppingFirstCharacters(std::string_view text, Int count);

/// What `characterSuffix` of the same arguments leaves over.
TOLVANITE_EXPORT std::string_view droppingLastCharacters(std::string_view text, Int count);

/// The text in lower or upper case, by the full mappings of Unicode without the customs of any
/// language: a mapping may change the number of characters.
/// @{
TOLVANITE_EXPORT std::string lowercased(std::string_view text);
TOLVANITE_EXPORT std::string uppercased(std::string_view text);
/// @}

/// Whether the text has no malformed sequence: none cut short, overlong, of a surrogate or above
/// U+10FFFF.
TOLVANITE_EXPORT bool isValidUtf8(std::string_view text);

}  // namespace tolvanite
