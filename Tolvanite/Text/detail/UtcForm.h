// The fixed forms of a time in UTC, written and read by hand: the same as by a pattern engine, in a
// small part of its time. Private to the date formatters.
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

/// The form "yyyy-MM-dd", `separator`, "HH:mm:ss", maybe ".SSS", and `suffix`.
struct UtcForm {
  char separator;
  bool hasMilliseconds;
  std::string_view suffix;

  /// The form that a pattern describes; absent for any but the few fixed ones.
  static Optional<UtcForm> ofPattern(std::string_view pattern);

  /// The text of a time that is given in milliseconds since 1970; absent for one outside of the
  /// years 1583 to 9999, where calendars and widths are another matter.
  Optional<std::string> write(double milliseconds) const;

  /// The time that exactly this form describes; absent for any other text, although a lenient
  /// reader may know what it means.
  Optional<AbsoluteTime> read(std::string_view text) const;
};

}  // namespace tolvanite::detail
