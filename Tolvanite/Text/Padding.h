// Texts brought to a width, which counts user-perceived characters (see Frame/Unicode.h).
//
//   paddedLeft("12", 5, "0")             "00012"
//   paddedRight("né", 4, ".")            "né.."
//   paddedBoth("ab", 7, "-")             "--ab---"
//   paddedLeft("12", "#####")            "###12"
//
// A pad of several characters is repeated and cut at the end. An empty one leaves the text as it
// is.
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The text extended to `length` characters with repeats of `with` behind it, or before it when
/// `rightPadding` is false; unchanged when it is as long or longer.
TOLVANITE_EXPORT std::string tvStringPadToLength(std::string_view text, Int length,
                                                 std::string_view with, bool rightPadding = true);

/// The two sides of `tvStringPadToLength`.
/// @{
TOLVANITE_EXPORT std::string paddedLeft(std::string_view text, Int length, std::string_view s);
TOLVANITE_EXPORT std::string paddedRight(std::string_view text, Int length, std::string_view s);
/// @}

/// The text extended on both sides, by half of what is missing each; an odd one goes behind the
/// text.
TOLVANITE_EXPORT std::string paddedBoth(std::string_view text, Int length, std::string_view s);

/// The pad text, overwritten by the text from the right: the result is as long as the pad, and of a
/// longer text the end is seen.
/// @{
TOLVANITE_EXPORT std::string paddedLeft(std::string_view text, std::string_view padding);
TOLVANITE_EXPORT std::string tvStringPaddedLeftWith(std::string_view text, std::string_view s);
/// @}

/// The field `s`, overwritten by the text `with` from the left, or from the right when
/// `leftAligned` is false. The result is as long as the field; a longer text loses what sticks out
/// on the far side.
TOLVANITE_EXPORT std::string overwritten(std::string_view s, std::string_view with,
                                         bool leftAligned = true);

/// The same with a field of `width` blanks. A negative width is fatal.
TOLVANITE_EXPORT std::string overwritten(Int width, std::string_view with, bool leftAligned = true);

}  // namespace tolvanite
