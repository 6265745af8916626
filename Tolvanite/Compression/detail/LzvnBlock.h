#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>

#include <Tolvanite/Compression/detail/LzfseFormat.h>
#include <Tolvanite/Compression/detail/WideCopy.h>

// LZVN: instructions of whole bytes, each of which appends literals that stand behind it and copies
// a match. For blocks that are too short to pay for the tables of the entropy coder.
namespace tolvanite::detail::lzfse {

// Reads an LZVN block in pieces as large as there is room.
class LzvnDecoder {
 public:
  // False if there can be no such block.
  bool open(std::span<const std::byte> payload, std::size_t plainSize);

  bool isFinished() const { return payload_.empty(); }

  // The room that the next step of `write` may need.
  static constexpr std::size_t mostStep = 15 + 271 + 16 + copySlack;

  // Writes from `place` on, until the block is finished or less than `mostStep` is left before
  // `limit`, and moves `place` to the end of what it wrote. Output of before stands from `history`
  // up to `place`. False if the block is damaged.
  bool write(const std::byte* history, std::byte*& place, const std::byte* limit);

 private:
  std::span<const std::byte> payload_;
  std::size_t plainLeft_ = 0;
  std::size_t distance_ = 0;  // of the match before, 0 if there was none
};

// Writes matches of 4 bytes or more as LZVN instructions.
class LzvnWriter {
 public:
  explicit LzvnWriter(std::span<std::byte> room) : begin_(room.data()), room_(room) {}

  // Writes literals and a match, which may be of no length. The distance is 65535 at most.
  // False if there is no room left; then no more may be written.
  bool add(std::span<const std::byte> literals, std::size_t count, std::size_t distance);

  // Ends the payload and gives its size, 0 if there is no room.
  std::size_t finish();

 private:
  bool put(std::initializer_list<std::size_t> bytes, std::span<const std::byte> literals = {});
  bool addOpcode(std::span<const std::byte> literals, std::size_t& count, std::size_t distance);

  std::byte* begin_;
  std::span<std::byte> room_;
  std::size_t distance_ = 0;
};

}  // namespace tolvanite::detail::lzfse
