#include <climits>
#include <cstddef>
#include <cstdint>
#include <random>

#include <sys/random.h>

#include "../RandomDriver.h"

// The standard library, and the kernel's own bytes.
namespace bench {
namespace {

class Mt19937 {
 public:
  std::uint64_t word() { return generator_(); }
  std::uint64_t upTo99() { return upTo99_(generator_); }
  void fill(std::byte* bytes, std::size_t size) { fillWithWords(generator_, bytes, size); }

 private:
  std::mt19937_64 generator_{commonSeed};
  std::uniform_int_distribution<std::uint64_t> upTo99_{0, 99};
};

class MinstdWords {
 public:
  std::uint64_t word() { return generator_(); }

 private:
  std::independent_bits_engine<std::minstd_rand, 64, std::uint64_t> generator_{commonSeed};
};

class Minstd {
 public:
  std::uint64_t upTo99() { return upTo99_(generator_); }

 private:
  std::minstd_rand generator_{commonSeed};
  std::uniform_int_distribution<int> upTo99_{0, 99};
};

class BitsEngine8 {
 public:
  void fill(std::byte* bytes, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::byte>(generator_());
  }

 private:
  std::independent_bits_engine<std::mt19937_64, CHAR_BIT, unsigned char> generator_{commonSeed};
};

class Kernel {
 public:
  void fill(std::byte* bytes, std::size_t size) {
    for (std::size_t done = 0; done < size;) {
      const ssize_t count = getrandom(bytes + done, size - done, 0);
      if (count > 0) done += static_cast<std::size_t>(count);
    }
  }
};

const bool registered =
    registerRandom<Mt19937>("std_mt19937_64") && registerRandom<MinstdWords>("std_minstd_x64") &&
    registerRandom<Minstd>("std_minstd") && registerRandom<BitsEngine8>("std_bits_engine_8") &&
    registerRandom<Kernel>("kernel_getrandom");

}  // namespace
}  // namespace bench
