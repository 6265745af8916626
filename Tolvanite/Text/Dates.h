// The fixed text forms of a time, the dates of mails and feeds, and the everyday questions to a
// calendar.
//
//   qIso_with(AbsoluteTime(0.5))                                  // "1970-01-01T00:00:00.500Z"
//   const std::string name = "backup_" + tvNowString() + ".zip";  // "backup_2018-02-03_10-00.zip"
//   dateFromRFC822String("Sat, 3 Feb 2018 10:00:00 +0100")        // a time, or absent
//   if (tvIsTimeBetweenSlang(AbsoluteTime::now(), 2200, 600)) useDarkColours();
//
// Where a time zone is taken, the process's is meant unless another is given. Everything here may
// be called on any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Text/DateFormatter.h>
#include <Tolvanite/Text/TimeZone.h>

namespace tolvanite {

/// Text forms in the process's locale and time zone.
/// @{
/// "yyyy-MM-dd_HHmm"
TOLVANITE_EXPORT std::string qEasy(AbsoluteTime time);
/// "HH-mm-ss"
TOLVANITE_EXPORT std::string qEasyTime(AbsoluteTime time);
/// "yyyy-MM-dd_HH-mm-ss"
TOLVANITE_EXPORT std::string qYyyyMmDdHhMmSs(AbsoluteTime time);
/// @}

/// Text forms in UTC, as their "Z" says.
/// @{
/// "yyyy-MM-dd'T'HH:mm:ss.SSS'Z'"
TOLVANITE_EXPORT std::string qIso_with(AbsoluteTime time);
/// "yyyy-MM-dd'T'HH:mm:ss'Z'"
TOLVANITE_EXPORT std::string qIso_without(AbsoluteTime time);
/// @}

/// The current time in the process's locale and time zone.
/// @{
/// "yyyy-MM-dd_HH-mm"
TOLVANITE_EXPORT std::string tvNowString();
/// "yyyy-MM-dd_HH-mm-ss"
TOLVANITE_EXPORT std::string tvNowStringWithSeconds();
/// "HH-mm-ss"
TOLVANITE_EXPORT std::string tvNowStringTime();
/// @}

/// The formatter's text for the time.
inline std::string formatWith(AbsoluteTime time, const DateFormatter& formatter) {
  return formatter.format(time);
}

/// Whether a time is truly earlier, or later, than another.
/// @{
constexpr bool isEarlierThan(AbsoluteTime time, AbsoluteTime other) noexcept {
  return time < other;
}
constexpr bool isLaterThan(AbsoluteTime time, AbsoluteTime other) noexcept { return time > other; }
/// @}

/// The first moment of the day of a time, usually of today. That is midnight, but where clocks are
/// put forward then. A time that no calendar reaches is given back.
TOLVANITE_EXPORT AbsoluteTime beginningOfDayDate(AbsoluteTime time = AbsoluteTime::now(),
                                                 const TimeZone& zone = TimeZone::current());

/// Whether the time of day lies from `start` on and before `end`, both written as one number: 1730
/// for half past five in the afternoon. With `end` below `start` the span passes midnight; equal
/// ones make an empty span.
TOLVANITE_EXPORT bool tvIsTimeBetweenSlang(AbsoluteTime time, Int start, Int end,
                                           const TimeZone& zone = TimeZone::current());

/// Calendar helpers.
struct TOLVANITE_EXPORT TvDateUtils {
  TvDateUtils() = delete;

  /// The beginnings of `count` days in the Gregorian calendar: of today, then of each day before
  /// it. None for a time that no calendar reaches. A negative count is fatal: "Negative number of
  /// days: -1".
  static std::vector<AbsoluteTime> beginningOfDayDatesBackwards(
      Int count, AbsoluteTime time = AbsoluteTime::now(),
      const TimeZone& zone = TimeZone::current());
};

/// The time that a date of RFC 822 means, as mails and feeds have it: "Sat, 3 Feb 2018 10:00:00
/// +0100", in any case, with or without the weekday, the seconds and the zone. Absent for any other
/// text. Which weekday it names is not looked at.
///
/// Zones are offsets ("+0100", "+01:00", "GMT+1", "UTC+0100"), the names of the RFC, and common
/// ones that mean one zone only. The single letters of the RFC other than "Z" were often written
/// with the wrong sign: they count as UTC, and so does a missing zone. Blanks and a comment at the
/// end, as in "+0000 (UTC)", are skipped. The year stands as it is written, as the pattern "yyyy"
/// has it: "18" is in antiquity.
TOLVANITE_EXPORT Optional<AbsoluteTime> dateFromRFC822String(std::string_view text);

}  // namespace tolvanite
