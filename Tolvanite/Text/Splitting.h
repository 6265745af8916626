// Splitting a text at a separator: into all its components, or in two.
//
//   componentsSeparatedBy("a,b,,c", ",")               {"a", "b", "", "c"}
//   componentsSeparatedBy("a,b,c", ",", 2)             absent: they are three
//   const auto [key, value] = componentsDividedAt("lang=en", "=");
//   for (std::string_view field : split(line, "\t")) ...
//
// Functions that are called `split...` but for `tvSplitAtFirstOccurrenceOf` give views into their
// argument, the others texts of their own. Separators are looked for byte for byte; an empty one
// occurs nowhere, so that the whole text is the only component.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Text/CharacterSet.h>

namespace tolvanite {

/// The components between the occurrences of the separator, empty ones included; an empty text has
/// one.
/// @{
TOLVANITE_EXPORT std::vector<std::string_view> split(std::string_view text,
                                                     std::string_view separator);
TOLVANITE_EXPORT std::vector<std::string> componentsSeparatedBy(std::string_view text,
                                                                std::string_view separator);
/// @}

/// The components when there are `expectedCount` of them, else absent.
TOLVANITE_EXPORT Optional<std::vector<std::string>> componentsSeparatedBy(
    std::string_view text, std::string_view separator, Int expectedCount);

/// The components with the separators between them as entries of their own; joined they are the
/// text again.
TOLVANITE_EXPORT std::vector<std::string> componentsSeparatedByKeeping(std::string_view text,
                                                                       std::string_view separator);

/// The components, each without the characters of the set at its ends.
TOLVANITE_EXPORT std::vector<std::string> componentsSeparatedByStringTrimmed(
    std::string_view text, std::string_view separator, const CharacterSet& set);

/// The components between "◊", ",", blanks, ", " and line feeds. A carriage return before a line
/// feed stays with its line.
/// @{
TOLVANITE_EXPORT std::vector<std::string> componentsByD(std::string_view text);
TOLVANITE_EXPORT std::vector<std::string> componentsByC(std::string_view text);
TOLVANITE_EXPORT std::vector<std::string> componentsByS(std::string_view text);
TOLVANITE_EXPORT std::vector<std::string> componentsByCS(std::string_view text);
TOLVANITE_EXPORT std::vector<std::string> componentsByNL(std::string_view text);
/// @}

/// The views between occurrences of ", ".
TOLVANITE_EXPORT std::vector<std::string_view> splitByCS(std::string_view text);

/// The texts before and behind the first occurrence of `s`; absent when `s` does not occur.
TOLVANITE_EXPORT Optional<std::pair<std::string, std::string>>
componentsSeparatedByIntoTwoPartsNilIfNotFound(std::string_view text, std::string_view s);

/// The same pair; when `s` does not occur, the whole text and the empty text.
/// @{
TOLVANITE_EXPORT std::pair<std::string, std::string> componentsSeparatedByIntoTwoParts(
    std::string_view text, std::string_view s);
TOLVANITE_EXPORT std::pair<std::string, std::string> componentsDividedAt(std::string_view text,
                                                                         std::string_view s);
TOLVANITE_EXPORT std::pair<std::string, std::string> tvSplitAtFirstOccurrenceOf(
    std::string_view text, std::string_view s);
/// @}

/// The same as a pair of views; absent when `s` does not occur.
TOLVANITE_EXPORT Optional<std::pair<std::string_view, std::string_view>> splitDividedAt(
    std::string_view text, std::string_view s);

/// The number of components between line feeds, of those that are not empty, and whether there are
/// more than one. An empty text has one line, which is empty.
/// @{
TOLVANITE_EXPORT Int numberOfLines(std::string_view text);
TOLVANITE_EXPORT Int numberOfNonEmptyLines(std::string_view text);
TOLVANITE_EXPORT bool hasMultipleLines(std::string_view text);
/// @}

}  // namespace tolvanite
