// Pieces of a text: by the offsets of its characters, and before or behind what it holds.
//
//   tvSubstringFrom("naïve", 1, 3)                  "aïv"
//   tvSubstringToString("key=value", "=")           "key"
//   tvStringAfter("key=value", "=")                 "value"
//   subscriptRange("naïve", {2, 9})                 absent
//
// Offsets and lengths count user-perceived characters (see Frame/Unicode.h). A text is looked for
// byte for byte; an empty one occurs nowhere.
#pragma once

#include <source_location>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/IndexRange.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// `withLength` characters from the offset `start` on. Fatal if the text has not so many, and for
/// what is negative.
/// @{
TOLVANITE_EXPORT std::string tvSubstringFrom(
    std::string_view text, Int start, Int withLength,
    std::source_location location = std::source_location::current());
TOLVANITE_EXPORT std::string tvStringFrom(
    std::string_view text, Int from, Int length,
    std::source_location location = std::source_location::current());
/// @}

/// The one character at an offset. Fatal if there is none.
/// @{
TOLVANITE_EXPORT std::string tvSubstringAt(
    std::string_view text, Int index,
    std::source_location location = std::source_location::current());
TOLVANITE_EXPORT std::string tvStringAt(
    std::string_view text, Int at, std::source_location location = std::source_location::current());
/// @}

/// The text before the first occurrence of `s`; the whole text when `s` does not occur. The search
/// begins at `startOffset`, and what stands before it is no part of the result. An offset beyond
/// the end is fatal.
/// @{
TOLVANITE_EXPORT std::string tvSubstringToString(std::string_view text, std::string_view s);
TOLVANITE_EXPORT std::string tvSubstringUpToFirstOccurrenceOf(
    std::string_view text, std::string_view s, Int startOffset = 0,
    std::source_location location = std::source_location::current());
TOLVANITE_EXPORT std::string tvStringUpTo(
    std::string_view text, std::string_view upTo, Int startOffset = 0,
    std::source_location location = std::source_location::current());
/// @}

/// The text behind the first occurrence of `s` at `startOffset` or behind it; empty when `s` does
/// not occur. An offset beyond the end is fatal.
/// @{
TOLVANITE_EXPORT std::string tvSubstringAfterFirstOccurrenceOf(
    std::string_view text, std::string_view s, Int startOffset = 0,
    std::source_location location = std::source_location::current());
TOLVANITE_EXPORT std::string tvStringAfter(
    std::string_view text, std::string_view after, Int startOffset = 0,
    std::source_location location = std::source_location::current());
/// @}

/// The characters of a range of offsets; absent when the range is not within the text.
TOLVANITE_EXPORT Optional<std::string> subscriptRange(std::string_view text,
                                                      const IndexRange& range);

/// As `subscriptRange`; a range that is not within the text is fatal.
TOLVANITE_EXPORT std::string subscriptRangeForced(
    std::string_view text, const IndexRange& range,
    std::source_location location = std::source_location::current());

}  // namespace tolvanite
