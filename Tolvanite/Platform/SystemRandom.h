// The system's source of random numbers, behind one seam: everything in the library that draws from
// the system draws here, so that a test can script the draws.
//
//   struct Fives : tolvanite::SystemRandom {
//     std::uint32_t uniform(std::uint32_t) override { return 5; }
//   };
//   Fives fives;
//   tolvanite::SystemRandom* const before = tolvanite::setSystemRandom(&fives);
//   ...
//   tolvanite::setSystemRandom(before);
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Cryptographically strong random numbers of the system, on any thread. The three kinds of draws
/// are independent of each other: replacing one leaves the others as they are.
class TOLVANITE_EXPORT SystemRandom {
 public:
  SystemRandom() = default;
  SystemRandom(const SystemRandom&) = delete;
  SystemRandom& operator=(const SystemRandom&) = delete;
  virtual ~SystemRandom();

  /// 32 random bits.
  virtual std::uint32_t word();
  /// A number from 0 to `bound` - 1, all equally likely; 0 if the bound is 0 or 1.
  virtual std::uint32_t uniform(std::uint32_t bound);
  /// Fills the bytes with random ones.
  virtual void fill(std::span<std::byte> bytes);
};

/// The source that the library draws from now.
TOLVANITE_EXPORT SystemRandom& systemRandom() noexcept;

/// Makes `source`, which must outlive its use, the source that the library draws from, or the
/// system's own if it is null. Gives the one before, to be set again, or null if that was the
/// system's own.
TOLVANITE_EXPORT SystemRandom* setSystemRandom(SystemRandom* source) noexcept;

}  // namespace tolvanite
