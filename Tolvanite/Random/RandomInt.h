// Random integers: in a range, without some of it, by a coin, and bell-shaped.
//
//   const Int die = RandomInt::randomNumber(1, 6);
//   const Int free = RandomInt::randomExcluding(9, {0, 3});   // 0 to 9, but neither 0 nor 3
//   const Int height = RandomInt::random_gauss(2.0, 200);     // 0 to 200, mostly near 100
//
// The draws come from the system's random source (see SystemRandom.h), so any thread may draw.
#pragma once

#include <limits>
#include <source_location>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Shuffling.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Random numbers of the type Int. A range of more than 2^32 - 1 values is fatal, "Arithmetic
/// overflow", where nothing else is said: the source draws 32 bits at most.
struct RandomInt {
  RandomInt() = delete;

  /// A number from 0 to `maxValue`, both included, all equally likely; 0 without a draw for a
  /// `maxValue` of 0. A negative one is fatal: "maxValue has to be at least 1".
  static Int random(Int maxValue = 4294967294,
                    std::source_location location = std::source_location::current()) {
    if (maxValue < 0) failMaxValue(location);
    if (maxValue == 0) return 0;
    return detail::drawBelow(checkedAdd(maxValue, Int{1}, location), location);
  }

  /// A number from 0 to `maxValue`, both included, that is not in `excluding`, all others equally
  /// likely; drawn until one fits, so that a set of the whole range never returns. A `maxValue`
  /// below 1 is fatal: "maxValue has to be at least 1".
  static Int randomExcluding(Int maxValue, const Set<Int>& excluding,
                             std::source_location location = std::source_location::current()) {
    if (maxValue < 1) failMaxValue(location);
    const Int bound = checkedAdd(maxValue, Int{1}, location);
    for (;;) {
      const Int value = detail::drawBelow(bound, location);
      if (!excluding.contains(value)) return value;
    }
  }
  /// `randomExcluding` with the highest Int as `maxValue`, deliberately: more values than can be
  /// drawn from, and so always fatal.
  static Int randomExcluding(const Set<Int>& excluding,
                             std::source_location location = std::source_location::current()) {
    return randomExcluding(std::numeric_limits<Int>::max(), excluding, location);
  }

  /// A number from `minValue` to `maxValue`, both included, all equally likely; without a draw when
  /// they are equal. A `maxValue` below `minValue` is fatal.
  static Int randomNumber(Int minValue = 0, Int maxValue = 100,
                          std::source_location location = std::source_location::current()) {
    if (maxValue < minValue) failRange(minValue, maxValue, location);
    if (maxValue == minValue) return minValue;
    const Int distance = checkedSubtract(maxValue, minValue, location);
    return minValue + detail::drawBelow(checkedAdd(distance, Int{1}, location), location);
  }

  /// 0 or `maxValue`, by one coin. A negative `maxValue` is fatal: "maxValue has to be at least 1".
  static Int randomExtreme(Int maxValue = 4294967294,
                           std::source_location location = std::source_location::current()) {
    if (maxValue < 0) failMaxValue(location);
    return detail::drawBelow(2, location) != 0 ? 0 : maxValue;
  }

  /// `value` or its negative, by one coin.
  static Int coinToss(Int value = 1,
                      std::source_location location = std::source_location::current()) {
    return detail::drawBelow(2, location) != 0 ? value : checkedSubtract(Int{0}, value, location);
  }

  /// A number from 0 to `maxValue` by the normal distribution around `maxValue` / 2, whose
  /// deviations `-threshold` to `threshold` are spread over the range; what lies outside is drawn
  /// anew, so that the tails are cut off. Results that round to above the highest Int are the
  /// highest Int. A `maxValue` of 0 gives 0 without a draw; a negative one is fatal, and so is a
  /// `threshold` that is not above 0.
  TOLVANITE_EXPORT static Int random_gauss(
      double threshold = 2.0, Int maxValue = std::numeric_limits<Int>::max(),
      std::source_location location = std::source_location::current());

  /// As `random_gauss`, but what lies outside of the thresholds is moved to them, so that the tails
  /// pile up on 0 and `maxValue`.
  TOLVANITE_EXPORT static Int random_gaussCollectOverflowValues(
      double threshold = 4.0, Int maxValue = std::numeric_limits<Int>::max(),
      std::source_location location = std::source_location::current());

 private:
  [[noreturn]] static void failMaxValue(std::source_location location) {
    fatalFailure("maxValue has to be at least 1", location);
  }
  [[noreturn]] TOLVANITE_EXPORT static void failRange(Int minValue, Int maxValue,
                                                      std::source_location location);
};

}  // namespace tolvanite
