// A way of writing coloured and graded lines to standard output. A style is held as a pointer, so
// that switching from one to another is one assignment.
//
//   const LoggingStyle* log = &qansilog::style();
//   log->green(42);
//   log = &QLogging::style();
//
// A host makes a style of its own by overriding the ...Text operations, of this class for a plain
// line or of QlogStyle and QansilogStyle for a coloured one.
#pragma once

#include <concepts>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The plain style: the value's text form alone, and gradings with the word in front. Every
/// operation writes one line, from any thread.
class TOLVANITE_EXPORT LoggingStyle {
 public:
  LoggingStyle() = default;
  LoggingStyle(const LoggingStyle&) = delete;
  LoggingStyle& operator=(const LoggingStyle&) = delete;
  virtual ~LoggingStyle();

  /// One line in that colour with the text form of a value, or with the name of its type if it has
  /// none.
  /// @{
  void red(const auto& value) const { redText(shown(value)); }
  void green(const auto& value) const { greenText(shown(value)); }
  void blue(const auto& value) const { blueText(shown(value)); }
  void lightRed(const auto& value) const { lightRedText(shown(value)); }
  void lightGreen(const auto& value) const { lightGreenText(shown(value)); }
  void lightBlue(const auto& value) const { lightBlueText(shown(value)); }
  void yellow(const auto& value) const { yellowText(shown(value)); }
  void purple(const auto& value) const { purpleText(shown(value)); }
  void lightPurple(const auto& value) const { lightPurpleText(shown(value)); }
  void brown(const auto& value) const { brownText(shown(value)); }
  void cyan(const auto& value) const { cyanText(shown(value)); }
  void lightCyan(const auto& value) const { lightCyanText(shown(value)); }
  void darkGray(const auto& value) const { darkGrayText(shown(value)); }
  void lightGray(const auto& value) const { lightGrayText(shown(value)); }
  /// @}

  /// One line of that grade.
  /// @{
  void error(std::string_view text) const { errorText(text); }
  void severe(std::string_view text) const { severeText(text); }
  void warning(std::string_view text) const { warningText(text); }
  /// @}

  /// Logs an error: "MESSAGE:ERROR", or "Error:ERROR" without a message, as by `error(text)`. The
  /// missing blank is deliberate.
  /// @{
  void error(const Optional<std::string_view>& message, const std::exception& error) const {
    describedError(message, error);
  }
  void error(const std::exception& error) const { describedError(std::nullopt, error); }
  /// @}

  /// Logs the error if there is one, and says whether there was: the test and the report in one.
  /// @{
  bool iferror(const Optional<std::string_view>& message, const std::exception* error) const {
    return describedIfError(message, error);
  }
  bool iferror(const Optional<std::string_view>& message, const std::exception& error) const {
    return describedIfError(message, &error);
  }
  bool iferror(const Optional<std::string_view>& message, std::nullopt_t) const {
    return describedIfError(message, nullptr);
  }
  template <std::derived_from<std::exception> E>
  bool iferror(const Optional<std::string_view>& message, const std::optional<E>& error) const {
    return describedIfError(message, error.has_value() ? &*error : nullptr);
  }
  /// @}

  /// Shows the style: each colour with its own name, then the grades. The word that shows `severe`
  /// is "warning", deliberately.
  virtual void testOutput() const;

 protected:
  /// What the operations of these names end in, with the text to show.
  /// @{
  virtual void redText(std::string_view text) const;
  virtual void greenText(std::string_view text) const;
  virtual void blueText(std::string_view text) const;
  virtual void lightRedText(std::string_view text) const;
  virtual void lightGreenText(std::string_view text) const;
  virtual void lightBlueText(std::string_view text) const;
  virtual void yellowText(std::string_view text) const;
  virtual void purpleText(std::string_view text) const;
  virtual void lightPurpleText(std::string_view text) const;
  virtual void brownText(std::string_view text) const;
  virtual void cyanText(std::string_view text) const;
  virtual void lightCyanText(std::string_view text) const;
  virtual void darkGrayText(std::string_view text) const;
  virtual void lightGrayText(std::string_view text) const;
  virtual void errorText(std::string_view text) const;
  virtual void severeText(std::string_view text) const;
  virtual void warningText(std::string_view text) const;
  virtual void describedError(const Optional<std::string_view>& message,
                              const std::exception& error) const;
  virtual bool describedIfError(const Optional<std::string_view>& message,
                                const std::exception* error) const;
  /// @}

 private:
  static std::string shown(const auto& value) { return detail::textFormOrTypeName(value); }
};

/// The style of a console that understands "fg" codes; any other shows the raw sequences. Some
/// colours share one code.
class TOLVANITE_EXPORT QlogStyle : public LoggingStyle {
 protected:
  void redText(std::string_view text) const override;
  void greenText(std::string_view text) const override;
  void blueText(std::string_view text) const override;
  void lightRedText(std::string_view text) const override;
  void lightGreenText(std::string_view text) const override;
  void lightBlueText(std::string_view text) const override;
  void yellowText(std::string_view text) const override;
  void purpleText(std::string_view text) const override;
  void lightPurpleText(std::string_view text) const override;
  void brownText(std::string_view text) const override;
  void cyanText(std::string_view text) const override;
  void lightCyanText(std::string_view text) const override;
  void darkGrayText(std::string_view text) const override;
  void lightGrayText(std::string_view text) const override;
  void errorText(std::string_view text) const override;
  void severeText(std::string_view text) const override;
  void warningText(std::string_view text) const override;
};

/// The style of a terminal: plain ANSI sequences.
class TOLVANITE_EXPORT QansilogStyle : public LoggingStyle {
 protected:
  void redText(std::string_view text) const override;
  void greenText(std::string_view text) const override;
  void blueText(std::string_view text) const override;
  void lightRedText(std::string_view text) const override;
  void lightGreenText(std::string_view text) const override;
  void lightBlueText(std::string_view text) const override;
  void yellowText(std::string_view text) const override;
  void purpleText(std::string_view text) const override;
  void lightPurpleText(std::string_view text) const override;
  void brownText(std::string_view text) const override;
  void cyanText(std::string_view text) const override;
  void lightCyanText(std::string_view text) const override;
  void darkGrayText(std::string_view text) const override;
  void lightGrayText(std::string_view text) const override;
  void errorText(std::string_view text) const override;
  void severeText(std::string_view text) const override;
  void warningText(std::string_view text) const override;
};

}  // namespace tolvanite
