#include <Tolvanite/Text/Dates.h>

#include <cmath>
#include <memory>

#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <Tolvanite/Frame/Fatal.h>

namespace tolvanite {

namespace {

// Some million years, where ICU's calendars end.
constexpr double farthestSecond = 1.8e14;

bool isInCalendar(AbsoluteTime time) {
  return std::abs(time.secondsSinceEpoch()) <= farthestSecond;
}

void requireSuccess(UErrorCode status) {
  if (U_FAILURE(status)) fatalFailure(std::string("Can't use a calendar: ") + u_errorName(status));
}

// A Gregorian calendar at the time.
class Calendar {
 public:
  Calendar(AbsoluteTime time, const TimeZone& zone)
      : calendar_(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(zone.name())),
                  status_) {
    requireSuccess(status_);
    calendar_.setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    calendar_.setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
    calendar_.setTime(std::floor(time.secondsSinceEpoch() * 1000), status_);
    julianDay_ = field(UCAL_JULIAN_DAY);
  }

  int32_t field(UCalendarDateFields which) {
    const int32_t result = calendar_.get(which, status_);
    requireSuccess(status_);
    return result;
  }

  // The start of a day, counted backwards from that of the calendar.
  AbsoluteTime startOfDayBefore(Int days) {
    calendar_.clear();
    calendar_.set(UCAL_JULIAN_DAY, static_cast<int32_t>(julianDay_ - days));
    const UDate milliseconds = calendar_.getTime(status_);
    requireSuccess(status_);
    return AbsoluteTime(milliseconds / 1000);
  }

 private:
  UErrorCode status_ = U_ZERO_ERROR;
  icu::GregorianCalendar calendar_;
  Int julianDay_;
};

DateFormatter localFormatter(std::string_view pattern) { return DateFormatter(pattern); }

}  // namespace

std::string qEasy(AbsoluteTime time) {
  static const DateFormatter formatter = localFormatter("yyyy-MM-dd_HHmm");
  return formatter.format(time);
}

std::string qEasyTime(AbsoluteTime time) {
  static const DateFormatter formatter = localFormatter("HH-mm-ss");
  return formatter.format(time);
}

std::string qYyyyMmDdHhMmSs(AbsoluteTime time) {
  static const DateFormatter formatter = localFormatter("yyyy-MM-dd_HH-mm-ss");
  return formatter.format(time);
}

std::string qIso_with(AbsoluteTime time) {
  return DateFormatter::naiveISODateFormatter_withFractionalSeconds().format(time);
}

std::string qIso_without(AbsoluteTime time) {
  return DateFormatter::naiveISODateFormatter_withoutFractionalSeconds().format(time);
}

std::string tvNowString() {
  static const DateFormatter formatter = localFormatter("yyyy-MM-dd_HH-mm");
  return formatter.format(AbsoluteTime::now());
}

std::string tvNowStringWithSeconds() { return qYyyyMmDdHhMmSs(AbsoluteTime::now()); }

std::string tvNowStringTime() { return qEasyTime(AbsoluteTime::now()); }

AbsoluteTime beginningOfDayDate(AbsoluteTime time, const TimeZone& zone) {
  return isInCalendar(time) ? Calendar(time, zone).startOfDayBefore(0) : time;
}

bool tvIsTimeBetweenSlang(AbsoluteTime time, Int start, Int end, const TimeZone& zone) {
  if (!isInCalendar(time)) return false;
  Calendar calendar(time, zone);
  const Int timeOfDay = Int{calendar.field(UCAL_HOUR_OF_DAY)} * 100 + calendar.field(UCAL_MINUTE);
  if (end < start) return timeOfDay >= start || timeOfDay < end;
  return timeOfDay >= start && timeOfDay < end;
}

std::vector<AbsoluteTime> TvDateUtils::beginningOfDayDatesBackwards(Int count, AbsoluteTime time,
                                                                    const TimeZone& zone) {
  if (count < 0) fatalFailure("Negative number of days: " + std::to_string(count));
  std::vector<AbsoluteTime> result;
  if (count == 0 || !isInCalendar(time)) return result;
  Calendar calendar(time, zone);
  for (Int day = 0; static_cast<Int>(result.size()) < count; ++day) {
    const AbsoluteTime start = calendar.startOfDayBefore(day);
    // A zone that changed sides of the date line skipped a whole day, which then begins as the
    // next.
    if (result.empty() || start < result.back()) result.push_back(start);
  }
  return result;
}

}  // namespace tolvanite
