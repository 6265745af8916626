// Random truth values, from the system's random source (see SystemRandom.h).
//
//   if (RandomBool::coinToss()) startLeft();
//   if (RandomBool::probabilityPercent(2.5)) showHint();
#pragma once

#include <cstdint>
#include <source_location>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Shuffling.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/SystemRandom.h>

namespace tolvanite {

/// Truth values of a given probability.
struct RandomBool {
  RandomBool() = delete;

  /// True half of the times.
  static bool coinToss() { return systemRandom().uniform(2) == 0; }

  /// True once in `n` + 1 times, deliberately one more than `n`; false without a draw for an `n`
  /// below 1. An `n` above 2^32 - 2 is fatal.
  static bool probabilityOneTo(Int n,
                               std::source_location location = std::source_location::current()) {
    if (n < 1) return false;
    return detail::drawBelow(checkedAdd(n, Int{1}, location), location) == 0;
  }

  /// True with the probability `p`, 0 to 1, in steps of 1 / 100000, the rest cut off. Fatal if `p`
  /// is no number, or `p` * 100000 is not between -1 and 2^32.
  static bool probability(double p,
                          std::source_location location = std::source_location::current()) {
    const std::uint32_t draw = systemRandom().uniform(100000);
    const double threshold = p * 100000;
    if (!(threshold > -1 && threshold < 4294967296.0)) fatalOverflow(location);
    return draw < static_cast<std::uint32_t>(threshold);
  }

  /// `probability` of `p` hundredths.
  static bool probabilityPercent(double p,
                                 std::source_location location = std::source_location::current()) {
    return probability(p / 100, location);
  }
};

}  // namespace tolvanite
