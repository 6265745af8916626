// How a caller marks code that must not run or is not written yet, and turns a reported error into
// a fatal failure.
//
//   default: TolvaniteCoding::unexpectedCodeReached("state " + textForm(state));
//
//   whenThrowing("The index cannot be read", [&] { index.load(); });
#pragma once

#include <source_location>
#include <string_view>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Markers of the thread that a function belongs to. They check nothing, deliberately: they stay in
/// the code as a note.
struct qassert {
  qassert() = delete;
  /// The function belongs to the main thread.
  static void mainThread() {}
  /// The function must not run on the main thread.
  static void notMainThread() {}
};

/// Markers for code that must not run, is not written yet or is worth a line.
struct TOLVANITE_EXPORT TolvaniteCoding {
  TolvaniteCoding() = delete;

  /// Prints "📛 IMPORTANT!! 📛 = " and the text as one line.
  static void importantLog(std::string_view text);

  /// Logs "Unexpected Code Reached: " and the text as important, then fails with that message.
  [[noreturn]] static void unexpectedCodeReached(
      std::string_view text, std::source_location location = std::source_location::current());

  /// Prints a line that says so, and returns: a warning, never a failure.
  static void notYetImplemented();

  /// As `qassert::mainThread`: checks nothing, deliberately.
  static void assertMainThread(std::source_location = std::source_location::current()) {}
};

/// Runs `block`. An error that leaves it is fatal: "MESSAGE: ", then the localized description of
/// an Error, `what()` of another std::exception, or "Unknown error of type TYPE".
TOLVANITE_EXPORT void whenThrowing(std::string_view fatalErrorMessage, const Block<void()>& block,
                                   std::source_location location = std::source_location::current());

/// Whether a debugger is attached to this process.
TOLVANITE_EXPORT bool tvAmIBeingDebugged();

}  // namespace tolvanite
