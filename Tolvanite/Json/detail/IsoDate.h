// Times as JSON documents hold them: "1970-01-01T00:00:00.500Z".
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite::detail {

/// A time in UTC to the nearest millisecond. A time beyond the calendar is shown as its first or
/// last one, what is no number as the start of 1970.
TOLVANITE_EXPORT std::string isoText(AbsoluteTime time);

/// The time that a text of exactly this form tells, with a year of four digits; absent for any
/// other text and for dates and hours that do not exist.
Optional<AbsoluteTime> timeOfIsoText(std::string_view text);

}  // namespace tolvanite::detail
