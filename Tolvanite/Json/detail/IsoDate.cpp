#include <Tolvanite/Json/detail/IsoDate.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>

#include <fmt/format.h>

namespace tolvanite::detail {

namespace {

using std::chrono::milliseconds;

constexpr std::string_view form = "0000-00-00T00:00:00.000Z";

bool hasForm(std::string_view text) {
  const auto fits = [](char byte, char wanted) {
    return wanted == '0' ? byte >= '0' && byte <= '9' : byte == wanted;
  };
  return std::ranges::equal(text, form, fits);
}

int numberAt(std::string_view text, std::size_t place, std::size_t length) {
  int result = 0;
  std::from_chars(text.data() + place, text.data() + place + length, result);
  return result;
}

}  // namespace

std::string isoText(AbsoluteTime time) {
  using namespace std::chrono;
  // The calendar of the standard library ends after some 30 000 years on either side.
  constexpr sys_days first = year(-32000) / January / 1;
  constexpr sys_days last = year(32000) / December / 31;
  const auto bound = [](sys_days day) {
    return static_cast<double>(day.time_since_epoch().count()) * 86400;
  };
  double exact = time.secondsSinceEpoch();
  exact = std::isnan(exact) ? 0 : std::clamp(exact, bound(first), bound(last));
  const double whole = std::floor(exact);
  const sys_time<milliseconds> rounded{milliseconds(static_cast<std::int64_t>(whole)) * 1000 +
                                       milliseconds(std::llround((exact - whole) * 1000))};
  const sys_days day = floor<days>(rounded);
  const year_month_day date = day;
  const hh_mm_ss clock(rounded - day);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}.{:03}Z", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                     clock.hours().count(), clock.minutes().count(), clock.seconds().count(),
                     clock.subseconds().count());
}

Optional<AbsoluteTime> timeOfIsoText(std::string_view text) {
  using namespace std::chrono;
  if (!hasForm(text)) return {};
  const year_month_day date(year(numberAt(text, 0, 4)),
                            month(static_cast<unsigned>(numberAt(text, 5, 2))),
                            std::chrono::day(static_cast<unsigned>(numberAt(text, 8, 2))));
  const int hour = numberAt(text, 11, 2);
  const int minute = numberAt(text, 14, 2);
  const int second = numberAt(text, 17, 2);
  if (!date.ok() || hour > 23 || minute > 59 || second > 59) return {};
  const auto whole = sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
  return AbsoluteTime(static_cast<double>(whole.time_since_epoch().count()) +
                      numberAt(text, 20, 3) / 1000.0);
}

}  // namespace tolvanite::detail
