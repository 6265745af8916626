// The logging classes: `QLogging` writes plain lines, `qlog` and `qansilog` coloured ones. They are
// used through their types.
//
//   qlog::red(5);
//   if (qlog::iferror("Reading the index", failure)) return;
//
// A class is held as a value through its style; see LoggingStyle. A host's own class is
//
//   struct mylog : LoggingClass<mylog> {
//     static const LoggingStyle& style();
//   };
#pragma once

#include <exception>
#include <string_view>

#include <Tolvanite/Diagnostics/LoggingStyle.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Gives `Class`, which names its style by a static `style()`, the operations of that style as
/// static functions of the same names.
template <typename Class>
struct LoggingClass {
  /// One line in that colour with the text form of a value, or with the name of its type if it has
  /// none; how the colour is told is up to the style.
  /// @{
  static void red(const auto& value) { Class::style().red(value); }
  static void green(const auto& value) { Class::style().green(value); }
  static void blue(const auto& value) { Class::style().blue(value); }
  static void lightRed(const auto& value) { Class::style().lightRed(value); }
  static void lightGreen(const auto& value) { Class::style().lightGreen(value); }
  static void lightBlue(const auto& value) { Class::style().lightBlue(value); }
  static void yellow(const auto& value) { Class::style().yellow(value); }
  static void purple(const auto& value) { Class::style().purple(value); }
  static void lightPurple(const auto& value) { Class::style().lightPurple(value); }
  static void brown(const auto& value) { Class::style().brown(value); }
  static void cyan(const auto& value) { Class::style().cyan(value); }
  static void lightCyan(const auto& value) { Class::style().lightCyan(value); }
  static void darkGray(const auto& value) { Class::style().darkGray(value); }
  static void lightGray(const auto& value) { Class::style().lightGray(value); }
  /// @}

  /// One line of that grade; the plain style writes the grade and ":" in front.
  /// @{
  static void error(std::string_view text) { Class::style().error(text); }
  static void severe(std::string_view text) { Class::style().severe(text); }
  static void warning(std::string_view text) { Class::style().warning(text); }
  /// @}

  /// Logs an error by its `what()`: "MESSAGE:ERROR", or "Error:ERROR" without a message, as by
  /// `error(text)`.
  /// @{
  static void error(const Optional<std::string_view>& message, const std::exception& error) {
    Class::style().error(message, error);
  }
  static void error(const std::exception& error) { Class::style().error(error); }
  /// @}

  /// Logs the error if there is one, and says whether there was. `error` is a std::exception, a
  /// pointer to one, an optional one or std::nullopt.
  template <typename E>
  static bool iferror(const Optional<std::string_view>& message, const E& error) {
    return Class::style().iferror(message, error);
  }

  /// Shows the style: each colour with its own name, then the grades.
  static void testOutput() { Class::style().testOutput(); }
};

/// Plain lines.
struct TOLVANITE_EXPORT QLogging : LoggingClass<QLogging> {
  QLogging() = delete;
  /// The one style of the class; alive to the end of the process.
  static const LoggingStyle& style();
};

/// Lines coloured for a console that understands "fg" codes.
struct TOLVANITE_EXPORT qlog : LoggingClass<qlog> {
  qlog() = delete;
  /// What begins a sequence.
  static constexpr std::string_view ESCAPE = "\x1b[";
  /// What ends the colour.
  static constexpr std::string_view RESET = "\x1b[;";
  /// The one style of the class; alive to the end of the process.
  static const LoggingStyle& style();
};

/// Lines coloured for a terminal, by ANSI sequences.
struct TOLVANITE_EXPORT qansilog : LoggingClass<qansilog> {
  qansilog() = delete;
  /// What begins a sequence.
  static constexpr std::string_view ESCAPE = "\x1b[";
  /// The one style of the class; alive to the end of the process.
  static const LoggingStyle& style();
};

}  // namespace tolvanite
