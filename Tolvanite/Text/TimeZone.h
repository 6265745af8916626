// A time zone, by its name. It is what date formatters and calendar helpers take; the rules of the
// zones are ICU's.
//
//   TimeZone::current()                       // that of the process
//   TimeZone::utc()
//   TimeZone::named("Europe/Berlin")          // absent if there is no such zone
//   TimeZone::secondsFromGmt(-5 * 3600)       // "GMT-05:00"
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <source_location>
#include <string>
#include <string_view>
#include <utility>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The name of a time zone.
class TOLVANITE_EXPORT TimeZone {
 public:
  /// That of the process, which is looked up once: changes of `TZ` after that are not seen.
  static TimeZone current();
  /// UTC; its name is "GMT".
  static TimeZone utc() { return TimeZone("GMT"); }
  /// A zone of the tz database, as "Europe/Berlin", or an offset, as "GMT+01:00". Absent if there
  /// is no such zone.
  static Optional<TimeZone> named(std::string_view name);
  /// The zone so many seconds ahead of UTC. A whole day or more is fatal: "A time zone of 86400
  /// seconds from GMT".
  static TimeZone secondsFromGmt(Int seconds,
                                 std::source_location location = std::source_location::current());

  /// The name, as "Europe/Berlin" or "GMT-05:00".
  const std::string& name() const noexcept { return name_; }
  /// The name.
  std::string description() const { return name_; }

  /// By name.
  friend bool operator==(const TimeZone&, const TimeZone&) noexcept = default;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const TimeZone& zone);

 private:
  explicit TimeZone(std::string name) : name_(std::move(name)) {}

  std::string name_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::TimeZone> {
  std::size_t operator()(const tolvanite::TimeZone& zone) const noexcept {
    return std::hash<std::string>()(zone.name());
  }
};
