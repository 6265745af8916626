// The one way in which the library writes a line to standard output.
//
//   printLine("📛 something odd: " + textForm(value));
#pragma once

#include <string_view>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Writes `line` and a line feed to standard output in one piece and flushes it. May be called
/// from any thread; two lines never mix.
TOLVANITE_EXPORT void printLine(std::string_view line);

}  // namespace tolvanite
