#include <bit>
#include <cstddef>
#include <cstdint>

#include "../RandomDriver.h"
#include "../Workload.h"

// Floors of Random: bare generators in a loop, bounded by the plain remainder, bias and all.
namespace bench {
namespace {

class Xoroshiro128Plus {
 public:
  std::uint64_t operator()() {
    const std::uint64_t result = a_ + b_;
    const std::uint64_t mixed = a_ ^ b_;
    a_ = std::rotl(a_, 55) ^ mixed ^ (mixed << 14);
    b_ = std::rotl(mixed, 36);
    return result;
  }

 private:
  SplitMix64 random_{commonSeed};
  std::uint64_t a_ = random_.next();
  std::uint64_t b_ = random_.next();
};

class BareXoroshiro {
 public:
  std::uint64_t word() { return generator_(); }
  std::uint64_t upTo99() { return generator_() % 100; }
  void fill(std::byte* bytes, std::size_t size) {
    Xoroshiro128Plus local = generator_;
    fillWithWords(local, bytes, size);
    generator_ = local;
  }

 private:
  Xoroshiro128Plus generator_;
};

class BareSplitMix {
 public:
  std::uint64_t word() { return random_.next(); }

 private:
  SplitMix64 random_{commonSeed};
};

const bool registered = registerRandom<BareXoroshiro>("floor_xoroshiro128p") &&
                        registerRandom<BareSplitMix>("floor_splitmix64");

}  // namespace
}  // namespace bench
