// A generator that gives one value for ever, for tests of code that takes a generator.
//
//   ConstantNonRandom sevens(7);
//   throwDice(sevens);
#pragma once

#include <cstdint>

#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Random/RandomGenerator.h>

namespace tolvanite {

/// Mind `random64(max)`: a value below its threshold is drawn again, and so for ever.
class ConstantNonRandom : public RandomWordGeneratorDefaults<ConstantNonRandom> {
 public:
  /// Takes the value from the system's random device. Fatal if that fails.
  TOLVANITE_EXPORT ConstantNonRandom();
  /// Takes this value. It reads the random device too, deliberately, and drops what it read: both
  /// ways of making one meet the same failures.
  TOLVANITE_EXPORT explicit ConstantNonRandom(std::uint64_t seed);

  /// Every word that is drawn; may be set between draws.
  std::uint64_t value;

  /// The `value`.
  constexpr std::uint64_t randomWord() { return value; }

  friend bool operator==(const ConstantNonRandom&, const ConstantNonRandom&) = default;
};

}  // namespace tolvanite
