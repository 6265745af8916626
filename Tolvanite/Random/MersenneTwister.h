// The Mersenne Twister MT19937-64 of Matsumoto and Nishimura: a long period, the stream of
// std::mt19937_64, and a value of 2.5 kB.
//
//   MersenneTwister generator(42);      // the same stream on every machine
//   generator.random64() == std::mt19937_64(42)()
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Random/RandomGenerator.h>

namespace tolvanite {

class MersenneTwister : public RandomWordGeneratorDefaults<MersenneTwister> {
 public:
  /// The number of words of the state: new ones are made after so many draws.
  static constexpr Int wordCount = 312;

  /// Seeds from the system's random device. Fatal if that fails.
  TOLVANITE_EXPORT MersenneTwister();
  /// Seeds from one word, as std::mt19937_64 does.
  constexpr explicit MersenneTwister(std::uint64_t seed) {
    state_internal[0] = seed;
    for (std::size_t i = 1; i < state_internal.size(); ++i) {
      const std::uint64_t before = state_internal[i - 1];
      state_internal[i] = 6364136223846793005U * (before ^ (before >> 62)) + i;
    }
  }

  /// The words from which the next ones are made. All that the next words depend on, together with
  /// `index`: set to what they were, the generator gives the same again.
  std::array<std::uint64_t, wordCount> state_internal{};
  /// The place of the next word to give out. Outside of the words, as at the start, the next draw
  /// makes new ones.
  Int index = wordCount;

  /// The next word, tempered. Every 312th draw makes the words anew and takes longer for it.
  constexpr std::uint64_t randomWord() {
    if (static_cast<std::uint64_t>(index) >= wordCount) {
      regenerate();
      index = 0;
    }
    std::uint64_t y = state_internal[static_cast<std::size_t>(index++)];
    y ^= (y >> 29) & 0x5555555555555555U;
    y ^= (y << 17) & 0x71D67FFFEDA60000U;
    y ^= (y << 37) & 0xFFF7EEE000000000U;
    return y ^ (y >> 43);
  }

  friend bool operator==(const MersenneTwister&, const MersenneTwister&) = default;

 private:
  // Each word from itself, its follower and the one half the block away, all in a ring. Kept out of
  // line, so that what draws stays small enough to be inlined. The parts
  // are loops of an even length without a bend, which the compiler does two words at a time.
  [[gnu::noinline]] constexpr void regenerate() {
    constexpr std::size_t count = wordCount, middle = count / 2;
    auto& words = state_internal;
    for (std::size_t i = 0; i < middle; ++i) {
      words[i] = twisted(words[i], words[i + 1], words[i + middle]);
    }
    for (std::size_t i = middle; i < count - 2; ++i) {
      words[i] = twisted(words[i], words[i + 1], words[i - middle]);
    }
    words[count - 2] = twisted(words[count - 2], words[count - 1], words[middle - 2]);
    words[count - 1] = twisted(words[count - 1], words[0], words[middle - 1]);
  }

  static constexpr std::uint64_t twisted(std::uint64_t word, std::uint64_t next,
                                         std::uint64_t across) {
    const std::uint64_t y = (word & 0xFFFFFFFF80000000U) | (next & 0x7FFFFFFFU);
    return across ^ (y >> 1) ^ ((0 - (y & 1U)) & 0xB5026F5AA96619E9U);
  }
};

}  // namespace tolvanite
