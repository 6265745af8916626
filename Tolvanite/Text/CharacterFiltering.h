// Texts with some of their characters replaced, removed or tested, told by a CharacterSet.
//
//   tvSanetizeFilename("a(b):c")                                              "a_b__c"
//   stringByReplacingContinuousCharacterFromSet("a - b", CharacterSet(" -"), "_")    "a_b"
//   containsOnlyCharacters("0x1F", CharacterSet("0123456789"))                false
//
// What is malformed in a text belongs to no set and stays as it is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/IndexRange.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Text/CharacterSet.h>

namespace tolvanite {

/// Where the code points of the set stand, each as a range of offsets of bytes, in text order.
TOLVANITE_EXPORT std::vector<IndexRange> rangesOfCharacters(std::string_view text,
                                                            const CharacterSet& in);

/// The text with `with` in place of each code point of the set.
TOLVANITE_EXPORT std::string stringByReplacingCharacterFromSet(std::string_view text,
                                                               const CharacterSet& set,
                                                               std::string_view with);

/// The text with `with` in place of each run of code points of the set.
TOLVANITE_EXPORT std::string stringByReplacingContinuousCharacterFromSet(std::string_view text,
                                                                         const CharacterSet& set,
                                                                         std::string_view with);

/// The text without the code points of the set.
TOLVANITE_EXPORT std::string tvStringByStrippingCharactersInSet(std::string_view text,
                                                                const CharacterSet& set);

/// The code points of the set that the text has, in order. What is malformed goes.
TOLVANITE_EXPORT std::string tvStringByKeepingCharactersInSet(std::string_view text,
                                                              const CharacterSet& set);

/// The text without the code points of the set at its two ends, white space if no other is given,
/// as a view into the argument.
TOLVANITE_EXPORT std::string_view trimmed(
    std::string_view text, const CharacterSet& set = CharacterSet::whitespacesAndNewlines());

/// Whether the text has no code point but those of the set; true for an empty text.
TOLVANITE_EXPORT bool containsOnlyCharacters(std::string_view text, const CharacterSet& in);

/// Whether the text has no code point of the set.
TOLVANITE_EXPORT bool containsNoCharacters(std::string_view text, const CharacterSet& of);

/// Whether the text has only characters of `CharacterSet::base32`.
TOLVANITE_EXPORT bool isBase32(std::string_view text);

/// The text with "_" in place of each character of the set that is invalid in file names, or of the
/// weaker one.
/// @{
TOLVANITE_EXPORT std::string tvSanetizeFilename(std::string_view text);
TOLVANITE_EXPORT std::string tvSanetizeFilenameWeaker(std::string_view text);
/// @}

/// The text without the characters of the weaker set.
TOLVANITE_EXPORT std::string tvSanetizeFilenameWeaker_Old(std::string_view text);

}  // namespace tolvanite
