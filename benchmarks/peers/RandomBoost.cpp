#if defined(TOLVANITE_PEER_BOOST)

#include <cstddef>
#include <cstdint>

#include <boost/random/mersenne_twister.hpp>
#include <boost/random/uniform_int_distribution.hpp>

#include "../RandomDriver.h"

namespace bench {
namespace {

class BoostMt19937 {
 public:
  std::uint64_t word() { return generator_(); }
  std::uint64_t upTo99() { return upTo99_(generator_); }
  void fill(std::byte* bytes, std::size_t size) { fillWithWords(generator_, bytes, size); }

 private:
  boost::random::mt19937_64 generator_{commonSeed};
  boost::random::uniform_int_distribution<std::uint64_t> upTo99_{0, 99};
};

const bool registered = registerRandom<BoostMt19937>("boost_mt19937_64");

}  // namespace
}  // namespace bench

#endif
