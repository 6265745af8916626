// Texts as hexadecimal numbers, of their bytes, UTF-16 units or Unicode scalars, and back.
//
//   utf8HexStringRepresentation("é!")                                      "c3a921"
//   scalarsHexRepresentation("é!", {.prefix = "U+", .separator = " "})     "U+00e9 U+0021"
//   stringFromScalarsHexString("e9 21", " ")                               "é!"
//   stringWithOffset(2912, 6)                                              "0x000b60"
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// How the numbers of a text are written. Refers to the texts that it was given.
struct HexadecimalForm {
  bool uppercase = false;           ///< Whether the digits above 9 are A to F and not a to f.
  std::string_view prefix = {};     ///< What stands before each number, as "0x".
  std::string_view separator = {};  ///< What stands between two numbers.
};

/// Each byte of the text as two digits.
TOLVANITE_EXPORT std::string utf8HexStringRepresentation(std::string_view text,
                                                         const HexadecimalForm& form = {});

/// Each UTF-16 unit of the text as four digits. A malformed sequence shows as U+FFFD.
TOLVANITE_EXPORT std::string utf16HexStringRepresentation(std::string_view text,
                                                          const HexadecimalForm& form = {});

/// Each Unicode scalar of the text, with four digits at least. A malformed sequence shows as
/// U+FFFD.
/// @{
TOLVANITE_EXPORT std::string scalarsHexRepresentation(std::string_view text,
                                                      const HexadecimalForm& form = {});
TOLVANITE_EXPORT std::string asScalarsHexString(std::string_view text,
                                                const HexadecimalForm& form = {});
/// @}

/// The hexadecimal numbers of a text, in any case, each without the prefix that it may have; absent
/// when one reads as no number of 32 bits. An empty text has none; an empty separator occurs
/// nowhere.
TOLVANITE_EXPORT Optional<std::vector<std::uint32_t>> uint32sFromHexString(
    std::string_view text, std::string_view separator, std::string_view prefix = {});

/// The text of the scalars, with the separator between them; absent when a number is no Unicode
/// scalar.
TOLVANITE_EXPORT Optional<std::string> fromUint32s(const std::vector<std::uint32_t>& list,
                                                   std::string_view separator = {});

/// The text whose scalars `text` tells, as `uint32sFromHexString` reads them; absent when a piece
/// reads as no number or no Unicode scalar.
TOLVANITE_EXPORT Optional<std::string> stringFromScalarsHexString(std::string_view text,
                                                                  std::string_view separator,
                                                                  std::string_view prefix = {});

/// "0x" and the number, with `length` digits at least. A negative number shows as its 64 bits.
TOLVANITE_EXPORT std::string stringWithOffset(Int offset, Int length, bool uppercase = false);

/// "0x" and the number with 16 digits, as an address is shown.
TOLVANITE_EXPORT std::string stringWithAddress(Int address, bool uppercase = false);

/// The text of the one character with the code, one of ASCII or of the rest of Latin-1.
TOLVANITE_EXPORT std::string stringWithAscii(std::uint8_t ascii);

}  // namespace tolvanite
