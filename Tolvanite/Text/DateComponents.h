// Some parts of a date, each set or not.
//
//   const DateComponents inTwoHours(2, CalendarUnit::hour);
//   const DateComponents leapDay({2024, 2, 29},
//                                {CalendarUnit::year, CalendarUnit::month, CalendarUnit::day});
//   leapDay.value(CalendarUnit::month)      // 2
//   leapDay.value(CalendarUnit::hour)       // absent
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <source_location>
#include <span>
#include <string>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// What a calendar counts.
enum class CalendarUnit {
  era,
  year,
  quarter,
  month,
  day,
  hour,
  minute,
  second,
  nanosecond,
  weekday,
  weekdayOrdinal,
  weekOfMonth,
  weekOfYear,
  yearForWeekOfYear,
};

/// Some parts of a date. The values may be any numbers.
class DateComponents {
 public:
  /// None is set.
  DateComponents() = default;
  /// One is set.
  DateComponents(Int value, CalendarUnit unit) { setValue(value, unit); }
  /// Each unit gets the value at its place; of a unit that stands there twice, the last one counts.
  /// Fatal if the numbers of both differ: "2 values for 1 units".
  /// @{
  DateComponents(std::span<const Int> values, std::span<const CalendarUnit> units,
                 std::source_location location = std::source_location::current()) {
    if (values.size() != units.size()) {
      fatalFailure(
          std::to_string(values.size()) + " values for " + std::to_string(units.size()) + " units",
          location);
    }
    for (std::size_t i = 0; i < values.size(); ++i) setValue(values[i], units[i]);
  }
  DateComponents(std::initializer_list<Int> values, std::initializer_list<CalendarUnit> units,
                 std::source_location location = std::source_location::current())
      : DateComponents(std::span(values.begin(), values.size()),
                       std::span(units.begin(), units.size()), location) {}
  /// @}

  /// The value of a unit; absent if it is not set.
  Optional<Int> value(CalendarUnit unit) const { return values_[static_cast<std::size_t>(unit)]; }
  /// Sets a unit, or unsets it with an absent value.
  void setValue(Optional<Int> value, CalendarUnit unit) {
    values_[static_cast<std::size_t>(unit)] = value;
  }

  friend bool operator==(const DateComponents&, const DateComponents&) = default;

 private:
  std::array<Optional<Int>, static_cast<std::size_t>(CalendarUnit::yearForWeekOfYear) + 1> values_;
};

}  // namespace tolvanite
