#include <Tolvanite/Text/TimeZone.h>

#include <cstdlib>
#include <memory>
#include <ostream>

#include <fmt/format.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <Tolvanite/Frame/Fatal.h>

namespace tolvanite {

namespace {

std::string nameOf(const icu::TimeZone& zone) {
  icu::UnicodeString name;
  std::string result;
  return zone.getID(name).toUTF8String(result);
}

}  // namespace

TimeZone TimeZone::current() {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createDefault());
  std::string name = nameOf(*zone);
  // A process whose zone can't be told runs by UTC.
  return name == UCAL_UNKNOWN_ZONE_ID ? utc() : TimeZone(std::move(name));
}

Optional<TimeZone> TimeZone::named(std::string_view name) {
  constexpr std::size_t longest = 100;
  if (name.size() > longest) return {};
  const std::unique_ptr<icu::TimeZone> zone(
      icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
  if (nameOf(*zone) == UCAL_UNKNOWN_ZONE_ID) return {};
  return TimeZone(std::string(name));
}

TimeZone TimeZone::secondsFromGmt(Int seconds, std::source_location location) {
  constexpr Int day = 86400;
  if (seconds <= -day || seconds >= day) {
    fatalFailure(fmt::format("A time zone of {} seconds from GMT", seconds), location);
  }
  if (seconds == 0) return utc();
  const Int distance = std::abs(seconds);
  std::string name =
      fmt::format("GMT{}{:02}:{:02}", seconds < 0 ? '-' : '+', distance / 3600, distance / 60 % 60);
  if (distance % 60 != 0) name += fmt::format(":{:02}", distance % 60);
  return TimeZone(std::move(name));
}

std::ostream& operator<<(std::ostream& out, const TimeZone& zone) { return out << zone.name(); }

}  // namespace tolvanite
