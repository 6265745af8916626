// Console lines that carry their source position and a mark of the main thread.
//
//   qfilelog("loaded");            🔀MT Track@12: loaded
//   qflow();                       🍇🍇🍇Track.load() Line:13 [MT]
//   qdebuglog(isVerbose, "again");
//
// The position is the caller's unless it is given; the file it names need not exist. Each line is
// written at once, from any thread.
#pragma once

#include <concepts>
#include <source_location>
#include <string>
#include <string_view>

#include <Tolvanite/Diagnostics/CallerPosition.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// One line: "🔀", "MT" on the main thread, a blank, the file's name without extension, "@", the
/// line, ": ", the text.
TOLVANITE_EXPORT void qfilelog(std::string_view text = {},
                               CallerPosition position = std::source_location::current());

/// As `qfilelog`, only when `flag` is true.
TOLVANITE_EXPORT void qdebuglog(bool flag, std::string_view text = {},
                                CallerPosition position = std::source_location::current());
/// A text in the place of the flag would be taken for true.
void qdebuglog(const char* flag, std::string_view text = {},
               CallerPosition position = std::source_location::current()) = delete;

/// One line: "🔀", "MT" on the main thread, a blank, the file's name with extension in double
/// quotes, "@", the line, ": ", the function and, with nothing between, the text.
TOLVANITE_EXPORT void qlinelog(std::string_view text = {},
                               CallerPosition position = std::source_location::current());

/// One line, only when `flag` is true: "🔀", "MT" on the main thread, a blank, the text.
TOLVANITE_EXPORT void dmprint(bool flag, std::string_view text = {});
/// A text in the place of the flag would be taken for true.
void dmprint(const char* flag, std::string_view text = {}) = delete;

/// One line: "🍇🍇🍇", the file's name without extension, ".", the function, " Line:", the line, a
/// blank, "[MT]" on the main thread and, when there is a text, ": " and the text.
TOLVANITE_EXPORT void qflow(std::string_view text = {},
                            CallerPosition position = std::source_location::current());

/// As `qflow`, only when `flag` is true.
template <std::same_as<bool> Flag>
void qflow(Flag flag, std::string_view text = {},
           CallerPosition position = std::source_location::current()) {
  if (flag) qflow(text, position);
}

/// The line of `qflow`, written to the system log, which reads it as a format: a percent sign in
/// the file's name or the text may be taken for a directive. The log puts its own stamp in front.
TOLVANITE_EXPORT void qnsflow(std::string_view text = {},
                              CallerPosition position = std::source_location::current());

/// The path of the caller's file, as the compiler knows it.
inline std::string qCurrentFilename(CallerPosition position = std::source_location::current()) {
  return std::string(position.file);
}
/// `file`, unchanged.
inline std::string qCurrentFilename(std::string_view file) { return std::string(file); }

}  // namespace tolvanite
