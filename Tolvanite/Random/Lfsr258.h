// The combined Tausworthe generator lfsr258 of L'Ecuyer: five components, a period of about 2^258.
//
//   Lfsr258 generator;                                       // seeded by the system
//   Lfsr258 again(0x1000, 0x2000, 0x3000, 0x40000, 0x1000000);  // the same stream on every machine
#pragma once

#include <array>
#include <cstdint>

#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Random/RandomGenerator.h>

namespace tolvanite {

class Lfsr258 : public RandomWordGeneratorDefaults<Lfsr258> {
 public:
  /// Seeds from the system's random device. Fatal if that fails.
  TOLVANITE_EXPORT Lfsr258();
  /// Takes the words as they are. For the full period they have to be at least 2, 512, 4096,
  /// 131072 and 8388608.
  constexpr Lfsr258(std::uint64_t z1, std::uint64_t z2, std::uint64_t z3, std::uint64_t z4,
                    std::uint64_t z5)
      : state{z1, z2, z3, z4, z5} {}

  /// All that the next words depend on: set to what it was, the generator gives the same again.
  std::array<std::uint64_t, 5> state;

  /// The next word: one step of each component, and the exclusive-or of the five (P. L'Ecuyer,
  /// "Tables of Maximally Equidistributed Combined LFSR Generators", 1999).
  constexpr std::uint64_t randomWord() {
    auto [z1, z2, z3, z4, z5] = state;
    z1 = ((z1 & ~1ULL) << 10) ^ (((z1 << 1) ^ z1) >> 53);
    z2 = ((z2 & ~511ULL) << 5) ^ (((z2 << 24) ^ z2) >> 50);
    z3 = ((z3 & ~4095ULL) << 29) ^ (((z3 << 3) ^ z3) >> 23);
    z4 = ((z4 & ~131071ULL) << 23) ^ (((z4 << 5) ^ z4) >> 24);
    z5 = ((z5 & ~8388607ULL) << 8) ^ (((z5 << 3) ^ z5) >> 33);
    state = {z1, z2, z3, z4, z5};
    return z1 ^ z2 ^ z3 ^ z4 ^ z5;
  }

  friend bool operator==(const Lfsr258&, const Lfsr258&) = default;
};

}  // namespace tolvanite
