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
#include <string>
#include <string_view>

#include <Tolvanite/Diagnostics/LoggingStyle.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Gives `Class`, which names its style by a static `style()`, the operations of that style as
/// static functions of the same names.
template <typename Class>
struct LoggingClass {
  static void red(const HasTextForm auto& value) { Class::style().red(value); }
  static void green(const HasTextForm auto& value) { Class::style().green(value); }
  static void blue(const HasTextForm auto& value) { Class::style().blue(value); }
  static void lightRed(const HasTextForm auto& value) { Class::style().lightRed(value); }
  static void lightGreen(const HasTextForm auto& value) { Class::style().lightGreen(value); }
  static void lightBlue(const HasTextForm auto& value) { Class::style().lightBlue(value); }
  static void yellow(const HasTextForm auto& value) { Class::style().yellow(value); }
  static void purple(const HasTextForm auto& value) { Class::style().purple(value); }
  static void lightPurple(const HasTextForm auto& value) { Class::style().lightPurple(value); }
  static void brown(const HasTextForm auto& value) { Class::style().brown(value); }
  static void cyan(const HasTextForm auto& value) { Class::style().cyan(value); }
  static void lightCyan(const HasTextForm auto& value) { Class::style().lightCyan(value); }
  static void darkGray(const HasTextForm auto& value) { Class::style().darkGray(value); }
  static void lightGray(const HasTextForm auto& value) { Class::style().lightGray(value); }

  static void error(std::string_view text) { Class::style().error(text); }
  static void severe(std::string_view text) { Class::style().severe(text); }
  static void warning(std::string_view text) { Class::style().warning(text); }
  static void error(const Optional<std::string>& message, const std::exception& error) {
    Class::style().error(message, error);
  }
  static void error(const std::exception& error) { Class::style().error(error); }

  /// `error` is a std::exception, a pointer to one, or an optional.
  template <typename E>
  static bool iferror(const Optional<std::string>& message, const E& error) {
    return Class::style().iferror(message, error);
  }

  static void testOutput() { Class::style().testOutput(); }
};

struct TOLVANITE_EXPORT QLogging : LoggingClass<QLogging> {
  QLogging() = delete;
  static const LoggingStyle& style();
};

struct TOLVANITE_EXPORT qlog : LoggingClass<qlog> {
  qlog() = delete;
  static constexpr std::string_view ESCAPE = "\x1b[";
  static constexpr std::string_view RESET = "\x1b[;";
  static const LoggingStyle& style();
};

struct TOLVANITE_EXPORT qansilog : LoggingClass<qansilog> {
  qansilog() = delete;
  static constexpr std::string_view ESCAPE = "\x1b[";
  static const LoggingStyle& style();
};

}  // namespace tolvanite
