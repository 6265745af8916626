// Texts of random characters, drawn from the system's random source (see SystemRandom.h).
//
//   tvRandomAlphanumericString(10)              "qX3nB0aZpL", or another
//   tvRandomAlphanumericString("🎲🎯", 3)        "🎯🎲🎲", or another
#pragma once

#include <source_location>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// `length` characters, each drawn from those of the pool, all equally likely. A negative length is
/// fatal, and so is an empty pool for a length above 0.
TOLVANITE_EXPORT std::string tvRandomAlphanumericString(
    std::string_view letterPool, Int length,
    std::source_location location = std::source_location::current());

/// The same from the ASCII letters of both cases and the digits.
/// @{
TOLVANITE_EXPORT std::string tvRandomAlphanumericString(
    Int length, std::source_location location = std::source_location::current());
TOLVANITE_EXPORT std::string tvRandomAlphanumericStringWithLength(
    Int length, std::source_location location = std::source_location::current());
/// @}

/// The same from the capitals A to Z and the digits 2 to 7.
/// @{
TOLVANITE_EXPORT std::string randomBase32(
    Int length, std::source_location location = std::source_location::current());
TOLVANITE_EXPORT std::string randomBase32WithLength(
    Int length, std::source_location location = std::source_location::current());
/// @}

/// A new random UUID in its usual form, in upper case.
TOLVANITE_EXPORT std::string tvUuidString();

}  // namespace tolvanite
