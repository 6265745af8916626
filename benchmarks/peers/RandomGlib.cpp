#if defined(TOLVANITE_PEER_GTK)

#include <cstdint>
#include <memory>

#include <glib.h>

#include "../RandomDriver.h"

namespace bench {
namespace {

class Glib {
 public:
  // Two calls: a call gives 32 bits.
  std::uint64_t word() {
    const std::uint64_t high = g_rand_int(generator_.get());
    return high << 32 | g_rand_int(generator_.get());
  }
  std::uint64_t upTo99() {
    return static_cast<std::uint64_t>(g_rand_int_range(generator_.get(), 0, 100));
  }

 private:
  std::unique_ptr<GRand, decltype(&g_rand_free)> generator_{
      g_rand_new_with_seed(static_cast<guint32>(commonSeed)), &g_rand_free};
};

const bool registered = registerRandom<Glib>("glib_GRand");

}  // namespace
}  // namespace bench

#endif
