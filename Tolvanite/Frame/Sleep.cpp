#include <Tolvanite/Frame/Sleep.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Q.h>

namespace tolvanite {

namespace {

void sleepMicroseconds(std::uint32_t count) {
  std::this_thread::sleep_for(std::chrono::microseconds(count));
}

}  // namespace

void q::sleep(double seconds) {
  // Some thirty years: longer ones would not fit the clock.
  constexpr double longest = 1e9;
  if (seconds > 0) {
    std::this_thread::sleep_for(std::chrono::duration<double>(std::min(seconds, longest)));
  }
}

void qsleep(std::uint32_t tenthsOfASecond, std::source_location location) {
  std::uint32_t microseconds = 0;
  if (__builtin_mul_overflow(tenthsOfASecond, 1000U, &microseconds) ||
      __builtin_mul_overflow(microseconds, 100U, &microseconds)) {
    fatalFailure("", location);
  }
  sleepMicroseconds(microseconds);
}

void qsleepSeconds(double seconds, std::source_location location) {
  const double microseconds = seconds * 1000 * 1000;
  if (!(microseconds > -1 && microseconds < 4294967296.0)) fatalFailure("", location);
  sleepMicroseconds(static_cast<std::uint32_t>(std::max(microseconds, 0.0)));
}

}  // namespace tolvanite
