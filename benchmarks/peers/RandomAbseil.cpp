#if defined(TOLVANITE_PEER_ABSL)

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>

#include <absl/random/random.h>

#include "../RandomDriver.h"

namespace bench {
namespace {

template <class Generator>
class Abseil {
 public:
  std::uint64_t word() { return generator_(); }
  std::uint64_t upTo99() {
    return absl::Uniform<std::uint64_t>(absl::IntervalClosed, generator_, 0, 99);
  }
  void fill(std::byte* bytes, std::size_t size) { fillWithWords(generator_, bytes, size); }

 private:
  std::seed_seq seeds_{commonSeed};
  Generator generator_{seeds_};
};

const bool registered = registerRandom<Abseil<absl::InsecureBitGen>>("absl_InsecureBitGen") &&
                        registerRandom<Abseil<absl::BitGen>>("absl_BitGen");

}  // namespace
}  // namespace bench

#endif
