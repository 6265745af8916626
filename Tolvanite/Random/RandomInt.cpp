#include <Tolvanite/Random/RandomInt.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include <fmt/format.h>

#include <Tolvanite/Random/RandomDouble.h>

namespace tolvanite {

namespace {

// Two independent draws of the standard normal distribution, by the polar method of Marsaglia.
std::pair<double, double> gaussPair() {
  for (;;) {
    const double u = 2 * RandomDouble::random() - 1;
    const double v = 2 * RandomDouble::random() - 1;
    const double s = u * u + v * v;
    if (s == 0 || s >= 1) continue;
    const double factor = std::sqrt(-2 * std::log(s) / s);
    return {u * factor, v * factor};
  }
}

void requireGaussArguments(double threshold, Int maxValue, std::source_location location) {
  if (maxValue < 0) fatalFailure(fmt::format("maxValue is negative: {}", maxValue), location);
  if (!(threshold > 0)) {
    fatalFailure(fmt::format("threshold has to be above 0, and is {}", threshold), location);
  }
}

// The deviation `z` of -threshold to threshold on the range of 0 to `maxValue`.
Int spread(double z, double threshold, Int maxValue) {
  const double value = std::round(static_cast<double>(maxValue) * ((z / threshold + 1) * 0.5));
  // The highest Int is no double; the next above it, 2^63, is.
  if (value >= 0x1p63) return std::numeric_limits<Int>::max();
  return static_cast<Int>(value);
}

}  // namespace

Int RandomInt::random_gauss(double threshold, Int maxValue, std::source_location location) {
  requireGaussArguments(threshold, maxValue, location);
  if (maxValue == 0) return 0;
  const auto isWithin = [=](double z) { return -threshold <= z && z <= threshold; };
  for (;;) {
    const auto [first, second] = gaussPair();
    if (isWithin(first)) return spread(first, threshold, maxValue);
    if (isWithin(second)) return spread(second, threshold, maxValue);
  }
}

Int RandomInt::random_gaussCollectOverflowValues(double threshold, Int maxValue,
                                                 std::source_location location) {
  requireGaussArguments(threshold, maxValue, location);
  if (maxValue == 0) return 0;
  const double z = gaussPair().first;
  return spread(std::clamp(z, -threshold, threshold), threshold, maxValue);
}

void RandomInt::failRange(Int minValue, Int maxValue, std::source_location location) {
  fatalFailure(fmt::format("maxValue {} is below minValue {}", maxValue, minValue), location);
}

}  // namespace tolvanite
