// A point in time, in seconds as a double, counted from the start of 1970 in UTC.
//
//   const AbsoluteTime start = AbsoluteTime::now();
//   const AbsoluteTime deadline = start + std::chrono::minutes(5);
//   const double seconds = deadline - start;                          // 300
//   const AbsoluteTime changed(std::chrono::system_clock::time_point{});
//   textForm(changed)                                                 "1970-01-01 00:00:00 +0000"
//
// In our days a double of seconds tells times apart down to about a quarter of a microsecond.
#pragma once

#include <chrono>
#include <compare>
#include <functional>
#include <iosfwd>
#include <string>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A point in time.
class TOLVANITE_EXPORT AbsoluteTime {
 public:
  /// The start of 1970.
  constexpr AbsoluteTime() noexcept = default;
  /// So many seconds after the start of 1970; before it when negative.
  constexpr explicit AbsoluteTime(double secondsSinceEpoch) noexcept
      : secondsSinceEpoch_(secondsSinceEpoch) {}
  /// The nearest double to a time of the system's clock.
  explicit AbsoluteTime(std::chrono::system_clock::time_point time) noexcept;

  /// The time of the system's clock.
  static AbsoluteTime now() noexcept { return AbsoluteTime(std::chrono::system_clock::now()); }

  /// The seconds since the start of 1970.
  constexpr double secondsSinceEpoch() const noexcept { return secondsSinceEpoch_; }

  /// The nearest time of the system's clock; its first or last one for a time beyond them, its
  /// epoch for what is no number.
  std::chrono::system_clock::time_point timePoint() const noexcept;

  constexpr AbsoluteTime& operator+=(double seconds) noexcept {
    secondsSinceEpoch_ += seconds;
    return *this;
  }
  constexpr AbsoluteTime& operator-=(double seconds) noexcept { return *this += -seconds; }
  constexpr AbsoluteTime& operator+=(std::chrono::duration<double> duration) noexcept {
    return *this += duration.count();
  }
  constexpr AbsoluteTime& operator-=(std::chrono::duration<double> duration) noexcept {
    return *this -= duration.count();
  }
  friend constexpr AbsoluteTime operator+(AbsoluteTime time, double seconds) noexcept {
    return time += seconds;
  }
  friend constexpr AbsoluteTime operator-(AbsoluteTime time, double seconds) noexcept {
    return time -= seconds;
  }
  friend constexpr AbsoluteTime operator+(AbsoluteTime time,
                                          std::chrono::duration<double> duration) noexcept {
    return time += duration;
  }
  friend constexpr AbsoluteTime operator-(AbsoluteTime time,
                                          std::chrono::duration<double> duration) noexcept {
    return time -= duration;
  }
  /// The seconds from the second time to the first.
  friend constexpr double operator-(AbsoluteTime a, AbsoluteTime b) noexcept {
    return a.secondsSinceEpoch_ - b.secondsSinceEpoch_;
  }

  friend constexpr bool operator==(AbsoluteTime, AbsoluteTime) noexcept = default;
  friend constexpr auto operator<=>(AbsoluteTime, AbsoluteTime) noexcept = default;

  /// Date and time in UTC to the second, rounded down: "2024-02-29 12:00:00 +0000". A time outside
  /// of the years 1 to 9999 is shown by its seconds, as "1e+300 s".
  std::string description() const;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, AbsoluteTime time);

 private:
  double secondsSinceEpoch_ = 0;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::AbsoluteTime> {
  std::size_t operator()(tolvanite::AbsoluteTime time) const noexcept {
    return std::hash<double>()(time.secondsSinceEpoch());
  }
};
