// How the generators seed themselves from the system's random device.
#include <array>
#include <cstddef>
#include <cstdint>

#include <Tolvanite/Random/ConstantNonRandom.h>
#include <Tolvanite/Random/DevRandom.h>
#include <Tolvanite/Random/Lfsr176.h>
#include <Tolvanite/Random/Lfsr258.h>
#include <Tolvanite/Random/MersenneTwister.h>
#include <Tolvanite/Random/Xoroshiro.h>

namespace tolvanite {

namespace {

// One word for each limit, in order, read again until it is not below its limit. The device is
// opened once for all of them.
template <std::size_t count>
std::array<std::uint64_t, count> wordsNotBelow(const std::array<std::uint64_t, count>& limits) {
  DevRandom device;
  std::array<std::uint64_t, count> words{};
  for (std::size_t i = 0; i < count; ++i) {
    do words[i] = device.random64();
    while (words[i] < limits[i]);
  }
  return words;
}

}  // namespace

// The limits are the bit counts of the published conditions and not the powers of two that these
// mean, deliberately: a word between the two shortens the period, and is too rare to matter.
Lfsr258::Lfsr258() : state(wordsNotBelow<5>({1, 9, 12, 17, 23})) {}

Lfsr176::Lfsr176() : state(wordsNotBelow<3>({1, 6, 9})) {}

Xoroshiro::Xoroshiro() { DevRandom::randomizeOnce(state.data(), sizeof state); }

ConstantNonRandom::ConstantNonRandom() : value(DevRandom::random64Once()) {}

ConstantNonRandom::ConstantNonRandom(std::uint64_t seed) : ConstantNonRandom() { value = seed; }

MersenneTwister::MersenneTwister() : MersenneTwister(DevRandom::random64Once()) {}

}  // namespace tolvanite
