// What a text says: a number, a truth value, a UUID.
//
//   tvInt("-12")                                  -12
//   tvInt("12 km")                                absent
//   isCharacterTristate("Y", "y", "n", true)      true
#pragma once

#include <string_view>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The decimal number that the whole text is, with or without a sign; absent when it is none, as
/// "nan" and "inf", or one beyond the range of the type. A number with a fraction has a "."
/// whatever the language.
/// @{
TOLVANITE_EXPORT Optional<double> tvDouble(std::string_view text);
TOLVANITE_EXPORT Optional<double> makeDouble(std::string_view text);
TOLVANITE_EXPORT Optional<Int> tvInt(std::string_view text);
TOLVANITE_EXPORT Optional<Int> makeInt(std::string_view text);
/// @}

/// True for the text `trueCharacter`, false for `falseCharacter`, absent for any other; with
/// `lowercaseSource` it is the text in lower case that is compared.
TOLVANITE_EXPORT Optional<bool> isCharacterTristate(std::string_view text,
                                                    std::string_view trueCharacter,
                                                    std::string_view falseCharacter,
                                                    bool lowercaseSource = false);

/// Whether the text is the usual form of a UUID: 36 characters, "-" at the offsets 8, 13, 18 and
/// 23, and hexadecimal digits of either case elsewhere.
TOLVANITE_EXPORT bool isUuidString(std::string_view text);

}  // namespace tolvanite
