// Writes times as texts and reads them back, by a pattern of Unicode date format ("yyyy-MM-dd") in
// some language and time zone.
//
//   const DateFormatter day("EEEE, d. MMMM", "de_DE", TimeZone::utc());
//   day.format(AbsoluteTime(0))                                // "Donnerstag, 1. Januar"
//   const auto& iso = DateFormatter::naiveISODateFormatter_withFractionalSeconds();
//   iso.format(AbsoluteTime(0.5))                              // "1970-01-01T00:00:00.500Z"
//   iso.parse("1970-01-01T00:00:00.500Z")->secondsSinceEpoch() // 0.5
//
// Any number of threads may use one formatter at once, as long as none changes it; copies share
// what is costly. The fixed UTC forms below take well below a microsecond, other patterns some.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Text/TimeZone.h>

namespace tolvanite {

/// Writes and reads times.
class TOLVANITE_EXPORT DateFormatter {
 public:
  /// How long a date or a time of day is written, as the language has it.
  enum class Style { none, shortStyle, mediumStyle, longStyle, fullStyle };

  /// The usual forms of the current language. Empty texts with `none` twice.
  DateFormatter(Style timeStyle, Style dateStyle, const TimeZone& timeZone = TimeZone::current());

  /// A pattern. A locale is named as in "de_CH"; the empty one is the process's. Letters without a
  /// meaning leave gaps in the text. Throws an `Error` for a pattern that the engine refuses.
  explicit DateFormatter(std::string_view formatString, std::string_view locale = "",
                         const TimeZone& timeZone = TimeZone::current());

  /// Sets the pattern and gives the formatter back. Not while others use it.
  DateFormatter& tvSetFormatString(std::string_view formatString);

  /// The pattern.
  const std::string& formatString() const noexcept;
  /// The name of the locale, empty for the process's.
  const std::string& locale() const noexcept;
  /// The time zone.
  const TimeZone& timeZone() const noexcept;

  /// The text of a time, which is rounded to the nearest millisecond first. A time that no calendar
  /// reaches, some five million years away, or that is no number, is shown by its seconds: "1e+300
  /// s".
  std::string format(AbsoluteTime time) const;

  /// The time that a text means. Strict: absent if the text goes on behind the pattern, lacks one
  /// of its numbers or names, or has numbers that no calendar has. What the pattern leaves open is
  /// that of the start of 1970.
  Optional<AbsoluteTime> parse(std::string_view text) const;

  /// Shared formatters in UTC, of the locale "en_US_POSIX". The "Z" of the first three is only a
  /// letter to them, that has to be there.
  /// @{
  /// "yyyy-MM-dd'T'HH:mm:ss.SSS'Z'"
  static const DateFormatter& naiveISODateFormatter_withFractionalSeconds();
  /// "yyyy-MM-dd'T'HH:mm:ss'Z'"
  static const DateFormatter& naiveISODateFormatter_withoutFractionalSeconds();
  /// "yyyy-MM-dd'T'HH:mm:ss.SSS'Z'"
  static const DateFormatter& tvJsonIsoDateFormatter();
  /// "yyyy-MM-dd' 'HH:mm:ss.SSS"
  static const DateFormatter& sqliteDateFormatter();
  /// "yyyy-MM-dd HH:mm:ss 'UTC'"
  static const DateFormatter& utcDateFormatter();
  /// @}

 private:
  class Engine;

  std::shared_ptr<const Engine> engine_;
};

}  // namespace tolvanite
