#include <cstddef>
#include <cstdint>
#include <utility>

#include <Tolvanite/Random/Lfsr176.h>
#include <Tolvanite/Random/Lfsr258.h>
#include <Tolvanite/Random/MersenneTwister.h>
#include <Tolvanite/Random/Xoroshiro.h>

#include "RandomDriver.h"
#include "Workload.h"

namespace bench {
namespace {

// A generator whose words of state come from the commonSeed.
template <class Generator, std::size_t words>
class Seeded {
 public:
  std::uint64_t word() { return generator_.random64(); }
  std::uint64_t upTo99() { return generator_.random64(99); }
  void fill(std::byte* bytes, std::size_t size) {
    generator_.randomize(bytes, static_cast<tolvanite::Int>(size));
  }

 private:
  static Generator make() {
    SplitMix64 random(commonSeed);
    return [&]<std::size_t... i>(std::index_sequence<i...>) {
      return Generator{(static_cast<void>(i), random.next())...};
    }(std::make_index_sequence<words>{});
  }

  Generator generator_ = make();
};

const bool registered =
    registerRandom<Seeded<tolvanite::Xoroshiro, 2>>("tolvanite") &&
    registerRandom<Seeded<tolvanite::MersenneTwister, 1>>("tolvanite_MersenneTwister") &&
    registerRandom<Seeded<tolvanite::Lfsr258, 5>>("tolvanite_Lfsr258") &&
    registerRandom<Seeded<tolvanite::Lfsr176, 3>>("tolvanite_Lfsr176");

}  // namespace
}  // namespace bench
