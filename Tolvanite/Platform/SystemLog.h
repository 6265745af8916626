// The log of the system, which stamps each line with time, process and thread for itself.
//
//   writeSystemLog("disk is full");   2026-03-01 14:05:09.120 player[4711:4711] disk is full
#pragma once

#include <string_view>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Writes one stamped line to the system log, which is standard error. `format` is read as a
/// format string without arguments: "%%" writes one percent sign; any other directive has nothing
/// to show and is written as it stands.
TOLVANITE_EXPORT void writeSystemLog(std::string_view format);

}  // namespace tolvanite
