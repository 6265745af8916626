#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <Tolvanite/Compression/detail/LittleEndian.h>

namespace tolvanite::detail::lzfse {

// Bits taken from the topmost of a word downward.
class BitWindow {
 public:
  explicit BitWindow(std::uint64_t word) : word_(word) {}

  // `count` may be 0. No more than the word holds may be taken in all.
  std::uint32_t take(unsigned count) {
    const auto result = static_cast<std::uint32_t>((word_ >> 1) >> (63 - count));
    word_ <<= count;
    return result;
  }

 private:
  std::uint64_t word_;
};

// Reads a payload's bit string from its end to its start.
class BackwardBits {
 public:
  // `padding`, 0 to 7, is the number of bits left over in the last byte. There must be 8 bytes to
  // read before the payload, since windows may dip below it.
  //
  // False if the payload is too short for its padding or bits of the padding are set.
  bool open(std::span<const std::byte> payload, int padding) {
    begin_ = payload.data();
    left_ = static_cast<std::int64_t>(payload.size() * 8) - padding;
    if (left_ < 0) return false;
    return padding == 0 || (std::to_integer<int>(payload.back()) >> (8 - padding)) == 0;
  }

  // The next bits: 57 or more. Bits beyond the start of the payload are whatever is there.
  BitWindow window() const {
    const std::int64_t end = (left_ + 7) >> 3;
    const auto word = loadLittle<std::uint64_t>(begin_ + end - 8);
    return BitWindow(word << (end * 8 - left_));
  }

  // Counts bits as read. False if there were not so many; then no window may be asked for.
  bool consume(unsigned count) {
    left_ -= count;
    return left_ >= 0;
  }

 private:
  const std::byte* begin_ = nullptr;
  std::int64_t left_ = 0;  // bits
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
