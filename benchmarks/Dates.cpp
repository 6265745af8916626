#include <cmath>
#include <string>

#include <Tolvanite/Text/DateFormatter.h>

#include "DatesDriver.h"

namespace bench {
namespace {

using tolvanite::AbsoluteTime;
using tolvanite::DateFormatter;

// The shared formatter.
class Ours {
 public:
  std::string write(std::int64_t milliseconds) {
    return formatter_.format(AbsoluteTime(static_cast<double>(milliseconds) / 1000));
  }
  std::int64_t read(const std::string& text) {
    const auto time = formatter_.parse(text);
    return time ? std::llround(time->secondsSinceEpoch() * 1000) : -1;
  }

 private:
  const DateFormatter& formatter_ = DateFormatter::naiveISODateFormatter_withFractionalSeconds();
};

const bool registered = registerDates<Ours>("tolvanite");

}  // namespace
}  // namespace bench
