// Sleeps of the calling thread that are strict about their range.
//
//   qsleep(5);               // half a second: the unit is a tenth
//   qsleepSeconds(0.000250);
#pragma once

#include <cstdint>
#include <source_location>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Sleeps for that many tenths of a second. Fatal, without a message, when the time in microseconds
/// does not fit 32 bits, so from 42950 on. The unit is deliberate.
TOLVANITE_EXPORT void qsleep(std::uint32_t tenthsOfASecond,
                             std::source_location location = std::source_location::current());

/// Sleeps for that many seconds, cut to whole microseconds. Fatal, without a message, when the
/// microseconds are no finite number strictly between -1 and 4294967296.
TOLVANITE_EXPORT void qsleepSeconds(
    double seconds, std::source_location location = std::source_location::current());

}  // namespace tolvanite
