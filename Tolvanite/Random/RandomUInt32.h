// Random 32-bit numbers below a bound, from the system's random source (see SystemRandom.h).
//
//   const std::uint32_t index = RandomUInt32::random(count);      // 0 to count - 1
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include <Tolvanite/Platform/SystemRandom.h>

namespace tolvanite {

/// Random numbers of the type std::uint32_t. Unlike those of RandomInt they stay below `maxValue`.
struct RandomUInt32 {
  RandomUInt32() = delete;

  /// A number from 0 to `maxValue` - 1, all equally likely; 0 for a `maxValue` of 0 or 1.
  static std::uint32_t random(std::uint32_t maxValue = std::numeric_limits<std::uint32_t>::max()) {
    return systemRandom().uniform(maxValue);
  }

  /// A number from 0 to `maxValue` - 1 that is not in `excluding`, all others equally likely; drawn
  /// until one fits, so that an array of the whole range never returns. Each draw looks through
  /// the array.
  static std::uint32_t randomExcluding(std::uint32_t maxValue,
                                       const std::vector<std::uint32_t>& excluding) {
    for (;;) {
      const std::uint32_t value = random(maxValue);
      if (std::find(excluding.begin(), excluding.end(), value) == excluding.end()) return value;
    }
  }
};

}  // namespace tolvanite
