#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include <Tolvanite/Compression/detail/LittleEndian.h>

namespace tolvanite::detail::lzfse {

// The numbers whose lowest bits, as many as the index says, are set.
inline constexpr auto lowBits = [] {
  std::array<std::uint32_t, 32> result{};
  for (unsigned i = 0; i < result.size(); ++i) result[i] = (std::uint32_t{1} << i) - 1;
  return result;
}();

// How a machine gives the lowest bits of a word. Their number, less than 32, is in the lowest byte
// of `count`; what stands above that byte means nothing, so that an entry of a table can be handed
// over as it is.
struct PlainMachine {
  [[gnu::always_inline]] static std::uint64_t lowest(std::uint64_t word, std::uint64_t count) {
    return word & lowBits[static_cast<std::uint8_t>(count)];
  }
};

#if defined(__x86_64__)
// With bmi2 there is one instruction for that, which compilers don't find.
struct Bmi2Machine {
  [[gnu::always_inline]] static std::uint64_t lowest(std::uint64_t word, std::uint64_t count) {
    std::uint64_t result;
    asm("bzhi %2, %1, %0" : "=r"(result) : "r"(word), "r"(count) : "cc");
    return result;
  }
};
#endif

// Reads a payload's bit string from its end to its start.
template <typename Machine>
class BackwardBits {
 public:
  // `padding`, 0 to 7, is the number of bits left over in the last byte. Beside the payload, 7
  // bytes before it and one behind it must be there to be read, since words are.
  //
  // False if the payload is too short for its padding or bits of the padding are set.
  bool open(std::span<const std::byte> payload, int padding) {
    const auto count = static_cast<std::int64_t>(payload.size() * 8) - padding;
    if (count < 0) return false;
    if (padding != 0 && (std::to_integer<int>(payload.back()) >> (8 - padding)) != 0) return false;
    first_ = payload.data() - 7;
    left_ = static_cast<std::uint64_t>(count & 7) | 56;
    place_ = payload.data() + (count - static_cast<std::int64_t>(left_)) / 8;
    word_ = loadLittle<std::uint64_t>(place_);
    return true;
  }

  // The next bits, as many as the lowest byte of `count` says. Of the first ones, and after each
  // `refill`, 56 can be taken.
  [[gnu::always_inline]] std::uint64_t take(std::uint64_t count) {
    left_ -= count;
    return Machine::lowest(word_ >> (left_ & 63), count);
  }

  // False if more bits were taken than there are; then no more may be. The word is read in any
  // case, up to 14 bytes before the payload, which compiles into a faster loop.
  [[gnu::always_inline]] bool refill() {
    place_ += static_cast<std::ptrdiff_t>((left_ & 63) >> 3) - 7;
    left_ |= 56;
    word_ = loadLittle<std::uint64_t>(place_);
    return place_ >= first_;
  }

  // How many refills are sure to find enough bits, if no more than `most` are taken before each.
  std::size_t sureRefills(std::size_t most) const {
    return static_cast<std::size_t>(place_ - first_) / ((most + 7) / 8);
  }

 private:
  std::uint64_t word_ = 0;  // what stands at `place_`
  std::uint64_t left_ = 0;  // in the lowest byte: bits of it, from the lowest up, 63 at most
  const std::byte* place_ = nullptr;
  const std::byte* first_ = nullptr;  // the least `place_` where no bit too many is taken
};

// Appends numbers to a bit string, the lowest bit first.
class BitWriter {
 public:
  explicit BitWriter(std::byte* place) : next_(place) {}

  // `number` must have no bits above `count`. After a `flush`, 57 bits can be added.
  void add(std::uint64_t number, unsigned count) {
    bits_ |= number << held_;
    held_ += count;
  }

  // Writes whole bytes out; 8 bytes are overwritten.
  void flush() {
    storeLittle(next_, bits_);
    next_ += held_ / 8;
    bits_ >>= held_ / 8 * 8;
    held_ %= 8;
  }

  // Writes the last bits out, and gives the number of zero bits that the last byte is filled with.
  int finish() {
    flush();
    if (held_ == 0) return 0;
    const int padding = 8 - static_cast<int>(held_);
    ++next_;
    bits_ = 0;
    held_ = 0;
    return padding;
  }

  std::byte* place() const { return next_; }

 private:
  std::byte* next_;
  std::uint64_t bits_ = 0;
  unsigned held_ = 0;
};

}  // namespace tolvanite::detail::lzfse
