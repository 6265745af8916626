// The system's strong random numbers as a generator (see SystemRandom.h). It has no state, and can
// be used from any thread.
//
//   Arc4Random generator;
//   const std::uint64_t token = generator.random64();
#pragma once

#include <cstddef>
#include <cstdint>
#include <source_location>
#include <span>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/SystemRandom.h>
#include <Tolvanite/Random/RandomGenerator.h>

namespace tolvanite {

class Arc4Random : public RandomGeneratorDefaults<Arc4Random> {
 public:
  using RandomGeneratorDefaults::random32;
  using RandomGeneratorDefaults::randomize;

  /// Fills `size` bytes. A negative size is fatal.
  void randomize(void* buffer, Int size,
                 std::source_location location = std::source_location::current()) {
    if (size < 0) fatalFailure("randomize of a negative size", location);
    systemRandom().fill({static_cast<std::byte*>(buffer), static_cast<std::size_t>(size)});
  }

  /// 32 random bits, by the source's own draw of a word.
  std::uint32_t random32() { return systemRandom().word(); }
};

}  // namespace tolvanite
