// The beginning and the end of a text: affixes that are to be there or not, what two texts begin
// with, and the first letter.
//
//   droppingPrefix("~/notes", "~/")              "notes"
//   ensuringSuffix("notes", ".txt")              "notes.txt"
//   capitalizingFirstLetter("élan")              "Élan"
//   hasCommonPrefix("notebook", "notes")         "note", with "book" and "s" left over
//
// Whether an affix is there is told byte for byte.
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Takes `s` from the beginning or the end of the text when it is there. `s` may be a part of the
/// text itself.
/// @{
TOLVANITE_EXPORT void dropPrefix(std::string& text, std::string_view s);
TOLVANITE_EXPORT void dropSuffix(std::string& text, std::string_view s);
/// @}

/// The text without `s` at its beginning or its end; unchanged when it is not there.
/// @{
TOLVANITE_EXPORT std::string droppingPrefix(std::string_view text, std::string_view s);
TOLVANITE_EXPORT std::string droppingSuffix(std::string_view text, std::string_view s);
TOLVANITE_EXPORT std::string tvStringByRemovingPrefix(std::string_view text, std::string_view s);
TOLVANITE_EXPORT std::string tvStringByRemovingSuffix(std::string_view text, std::string_view s);
/// @}

/// Adds `s` at the beginning or the end of the text when it is not there yet. `s` may be a part of
/// the text itself.
/// @{
TOLVANITE_EXPORT void ensurePrefix(std::string& text, std::string_view s);
TOLVANITE_EXPORT void ensureSuffix(std::string& text, std::string_view s);
/// @}

/// The text with `s` at its beginning or its end, added when it is not there yet.
/// @{
TOLVANITE_EXPORT std::string ensuringPrefix(std::string_view text, std::string_view s);
TOLVANITE_EXPORT std::string ensuringSuffix(std::string_view text, std::string_view s);
/// @}

/// What two texts begin with, and what they are behind it.
struct CommonPrefix {
  std::string prefix;          ///< The whole characters that both begin with; never empty.
  std::string remainder;       ///< The rest of the first text; may be empty.
  std::string otherRemainder;  ///< The rest of the other text; may be empty.

  friend bool operator==(const CommonPrefix&, const CommonPrefix&) = default;
};

/// The characters that both texts begin with and the two remainders; absent when the first
/// characters differ or there is none.
TOLVANITE_EXPORT Optional<CommonPrefix> hasCommonPrefix(std::string_view text,
                                                        std::string_view other);

/// Whether `text` stands before `other`, by their code points, once the prefix is cut from each of
/// them that begins with it. `prefixLength` is the number of characters to cut; the first form
/// counts those of the prefix.
/// @{
TOLVANITE_EXPORT bool lessThen(std::string_view text, std::string_view other,
                               std::string_view ignoringPrefix);
TOLVANITE_EXPORT bool lessThen(std::string_view text, std::string_view other,
                               std::string_view ignoringPrefix, Int prefixLength);
/// @}

/// The text with its first character in upper or lower case. That may lengthen it: "ß" becomes
/// "SS".
/// @{
TOLVANITE_EXPORT std::string capitalizingFirstLetter(std::string_view text);
TOLVANITE_EXPORT std::string capitalizedFirstCharacterString(std::string_view text);
TOLVANITE_EXPORT std::string lowercasingFirstLetter(std::string_view text);
TOLVANITE_EXPORT std::string lowercasedFirstCharacterString(std::string_view text);
/// @}

/// The first character; empty for an empty text.
TOLVANITE_EXPORT std::string firstLetterString(std::string_view text);

}  // namespace tolvanite
