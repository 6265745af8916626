#include <Tolvanite/Diagnostics/LoggingStyle.h>

#include <fmt/format.h>

#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Diagnostics/QLogging.h>

namespace tolvanite {

// The plain style.

LoggingStyle::~LoggingStyle() = default;

void LoggingStyle::redText(std::string_view text) const { printLine(text); }
void LoggingStyle::greenText(std::string_view text) const { printLine(text); }
void LoggingStyle::blueText(std::string_view text) const { printLine(text); }
void LoggingStyle::lightRedText(std::string_view text) const { printLine(text); }
void LoggingStyle::lightGreenText(std::string_view text) const { printLine(text); }
void LoggingStyle::lightBlueText(std::string_view text) const { printLine(text); }
void LoggingStyle::yellowText(std::string_view text) const { printLine(text); }
void LoggingStyle::purpleText(std::string_view text) const { printLine(text); }
void LoggingStyle::lightPurpleText(std::string_view text) const { printLine(text); }
void LoggingStyle::brownText(std::string_view text) const { printLine(text); }
void LoggingStyle::cyanText(std::string_view text) const { printLine(text); }
void LoggingStyle::lightCyanText(std::string_view text) const { printLine(text); }
void LoggingStyle::darkGrayText(std::string_view text) const { printLine(text); }
void LoggingStyle::lightGrayText(std::string_view text) const { printLine(text); }

void LoggingStyle::errorText(std::string_view text) const {
  printLine(fmt::format("Error:{}", text));
}
void LoggingStyle::severeText(std::string_view text) const {
  printLine(fmt::format("Severe:{}", text));
}
void LoggingStyle::warningText(std::string_view text) const {
  printLine(fmt::format("Warning:{}", text));
}

void LoggingStyle::describedError(const Optional<std::string_view>& message,
                                  const std::exception& error) const {
  errorText(fmt::format("{}:{}", message.value_or("Error"), error.what()));
}

bool LoggingStyle::describedIfError(const Optional<std::string_view>& message,
                                    const std::exception* error) const {
  if (error == nullptr) return false;
  describedError(message, *error);
  return true;
}

void LoggingStyle::testOutput() const {
  red("red");
  green("green");
  blue("blue");
  lightRed("lightRed");
  lightGreen("lightGreen");
  lightBlue("lightBlue");
  yellow("yellow");
  purple("purple");
  lightPurple("lightPurple");
  brown("brown");
  cyan("cyan");
  lightCyan("lightCyan");
  darkGray("darkGray");
  lightGray("lightGray");
  error("error");
  severe("warning");
  warning("warning");
}

// The style of "fg" codes.

namespace {

void printFgLine(std::string_view code, std::string_view text) {
  printLine(fmt::format("{}{}{}{}", qlog::ESCAPE, code, text, qlog::RESET));
}

}  // namespace

void QlogStyle::redText(std::string_view text) const { printFgLine("fg255,0,0;", text); }
void QlogStyle::greenText(std::string_view text) const { lightGreenText(text); }
void QlogStyle::blueText(std::string_view text) const { printFgLine("fg0,0,255;", text); }
void QlogStyle::lightRedText(std::string_view text) const { redText(text); }
void QlogStyle::lightGreenText(std::string_view text) const { printFgLine("fg0,255,0;", text); }
void QlogStyle::lightBlueText(std::string_view text) const { blueText(text); }
void QlogStyle::yellowText(std::string_view text) const { printFgLine("fg255,255,0;", text); }
void QlogStyle::purpleText(std::string_view text) const { lightPurpleText(text); }
void QlogStyle::lightPurpleText(std::string_view text) const { printFgLine("fg255,0,255;", text); }
void QlogStyle::brownText(std::string_view text) const { printFgLine("fg139,69,19;", text); }
void QlogStyle::cyanText(std::string_view text) const { printFgLine("fg0,255,255;", text); }
void QlogStyle::lightCyanText(std::string_view text) const { cyanText(text); }
void QlogStyle::darkGrayText(std::string_view text) const { printFgLine("fg40,40,40;", text); }
// The letters among the decimal codes are deliberate: readers of the output know this code.
void QlogStyle::lightGrayText(std::string_view text) const { printFgLine("fgb0,b0,b0;", text); }
void QlogStyle::errorText(std::string_view text) const { redText(text); }
void QlogStyle::severeText(std::string_view text) const { printFgLine("fg255,0,255;", text); }
void QlogStyle::warningText(std::string_view text) const { printFgLine("fg255,255,0;", text); }

// The style of ANSI sequences.

namespace {

void printAnsiLine(std::string_view code, std::string_view text) {
  printLine(fmt::format("{0}{1}{2}{0}0m", qansilog::ESCAPE, code, text));
}

}  // namespace

void QansilogStyle::redText(std::string_view text) const { printAnsiLine("0;31m", text); }
void QansilogStyle::greenText(std::string_view text) const { printAnsiLine("0;32m", text); }
void QansilogStyle::blueText(std::string_view text) const { printAnsiLine("0;34m", text); }
void QansilogStyle::lightRedText(std::string_view text) const { printAnsiLine("1;31m", text); }
void QansilogStyle::lightGreenText(std::string_view text) const { printAnsiLine("1;32m", text); }
void QansilogStyle::lightBlueText(std::string_view text) const { printAnsiLine("1;34m", text); }
void QansilogStyle::yellowText(std::string_view text) const { printAnsiLine("1;33m", text); }
void QansilogStyle::purpleText(std::string_view text) const { printAnsiLine("0;35m", text); }
void QansilogStyle::lightPurpleText(std::string_view text) const { printAnsiLine("1;35m", text); }
void QansilogStyle::brownText(std::string_view text) const { printAnsiLine("0;33m", text); }
void QansilogStyle::cyanText(std::string_view text) const { printAnsiLine("0;36m", text); }
void QansilogStyle::lightCyanText(std::string_view text) const { printAnsiLine("1;36m", text); }
void QansilogStyle::darkGrayText(std::string_view text) const { printAnsiLine("1;30m", text); }
void QansilogStyle::lightGrayText(std::string_view text) const { printAnsiLine("0;37m", text); }
void QansilogStyle::errorText(std::string_view text) const { redText(text); }
void QansilogStyle::severeText(std::string_view text) const { printAnsiLine("0;35m", text); }
void QansilogStyle::warningText(std::string_view text) const { printAnsiLine("1;33m", text); }

// The styles live as long as the process: a thread may log while it ends.

const LoggingStyle& QLogging::style() {
  static const LoggingStyle& instance = *new LoggingStyle;
  return instance;
}

const LoggingStyle& qlog::style() {
  static const LoggingStyle& instance = *new QlogStyle;
  return instance;
}

const LoggingStyle& qansilog::style() {
  static const LoggingStyle& instance = *new QansilogStyle;
  return instance;
}

}  // namespace tolvanite
