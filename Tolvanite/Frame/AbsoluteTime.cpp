#include <Tolvanite/Frame/AbsoluteTime.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <ostream>

#include <fmt/format.h>

namespace tolvanite {

// Both conversions take whole seconds and the rest apart: nanoseconds since 1970 are more than a
// double can count.

AbsoluteTime::AbsoluteTime(std::chrono::system_clock::time_point time) noexcept {
  using namespace std::chrono;
  const auto whole = time_point_cast<seconds>(time);
  secondsSinceEpoch_ = static_cast<double>(whole.time_since_epoch().count()) +
                       duration<double>(time - whole).count();
}

std::chrono::system_clock::time_point AbsoluteTime::timePoint() const noexcept {
  using namespace std::chrono;
  using Ticks = system_clock::duration;
  const double whole = std::floor(secondsSinceEpoch_);
  if (std::isnan(whole)) return {};
  // One second away from the ends, so that the rest fits, too.
  if (whole >= duration<double>(Ticks::max()).count() - 1) return system_clock::time_point::max();
  if (whole <= duration<double>(Ticks::min()).count() + 1) return system_clock::time_point::min();
  const duration<double, Ticks::period> rest = duration<double>(secondsSinceEpoch_ - whole);
  return system_clock::time_point(seconds(static_cast<std::int64_t>(whole)) +
                                  Ticks(std::llround(rest.count())));
}

std::string AbsoluteTime::description() const {
  using namespace std::chrono;
  constexpr sys_seconds first = sys_days(year(1) / January / 1);
  constexpr sys_seconds end = sys_days(year(10000) / January / 1);
  const double whole = std::floor(secondsSinceEpoch_);
  const auto bound = [](sys_seconds time) {
    return static_cast<double>(time.time_since_epoch().count());
  };
  // Written so that what is no number fails, too.
  if (!(whole >= bound(first) && whole < bound(end)))
    return fmt::format("{} s", secondsSinceEpoch_);
  const sys_seconds time{seconds(static_cast<std::int64_t>(whole))};
  const sys_days day = floor<days>(time);
  const year_month_day date = day;
  const hh_mm_ss clock(time - day);
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02} +0000", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                     clock.hours().count(), clock.minutes().count(), clock.seconds().count());
}

std::ostream& operator<<(std::ostream& out, AbsoluteTime time) { return out << time.description(); }

}  // namespace tolvanite
