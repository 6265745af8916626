// A combined Tausworthe generator of three components and a period of about 2^176.
//
//   Lfsr176 generator;                        // seeded by the system
//   Lfsr176 again(0x1000, 0x2000, 0x3000);    // the same stream on every machine
#pragma once

#include <array>
#include <cstdint>

#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Random/RandomGenerator.h>

namespace tolvanite {

class Lfsr176 : public RandomWordGeneratorDefaults<Lfsr176> {
 public:
  /// Seeds from the system's random device. Fatal if that fails.
  TOLVANITE_EXPORT Lfsr176();
  /// Takes the words as they are. For the full period they have to be at least 2, 64 and 512.
  constexpr Lfsr176(std::uint64_t z1, std::uint64_t z2, std::uint64_t z3) : state{z1, z2, z3} {}

  /// All that the next words depend on: set to what it was, the generator gives the same again.
  std::array<std::uint64_t, 3> state;

  /// The next word: one step of each component, and the exclusive-or of the three.
  constexpr std::uint64_t randomWord() {
    auto [z1, z2, z3] = state;
    z1 = ((z1 & ~1ULL) << 24) ^ (((z1 << 5) ^ z1) >> 39);
    z2 = ((z2 & ~63ULL) << 13) ^ (((z2 << 19) ^ z2) >> 45);
    z3 = ((z3 & ~511ULL) << 17) ^ (((z3 << 24) ^ z3) >> 38);
    state = {z1, z2, z3};
    return z1 ^ z2 ^ z3;
  }

  friend bool operator==(const Lfsr176&, const Lfsr176&) = default;
};

}  // namespace tolvanite
