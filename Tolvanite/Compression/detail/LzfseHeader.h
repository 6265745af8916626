#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include <Tolvanite/Compression/detail/LzfseFormat.h>

namespace tolvanite::detail::lzfse {

// How often the states of a table stand for each symbol.
struct Frequencies {
  std::array<std::uint16_t, lengthSymbols> l{};
  std::array<std::uint16_t, lengthSymbols> m{};
  std::array<std::uint16_t, distanceSymbols> d{};
  std::array<std::uint16_t, literalSymbols> literal{};
};

// The header of a block of matches, in either form.
struct Header {
  std::uint32_t plainSize = 0;
  std::uint32_t literalCount = 0;
  std::uint32_t tripletCount = 0;
  std::uint32_t literalPayloadSize = 0;
  std::uint32_t tripletPayloadSize = 0;
  std::int32_t literalBits = 0;  // minus the bits of padding, -7 to 0
  std::int32_t tripletBits = 0;
  std::array<std::uint16_t, 4> literalState{};
  std::uint16_t lState = 0;
  std::uint16_t mState = 0;
  std::uint16_t dState = 0;
  Frequencies frequencies;
  std::size_t headerSize = 0;

  // In 64 bits, where no two sizes of 32 bits overflow.
  std::uint64_t blockSize() const {
    return std::uint64_t{headerSize} + literalPayloadSize + tripletPayloadSize;
  }
};

// Read the header of the block that `block` begins with, of which it holds everything up to the end
// of the input. False if a field is out of its range or the input ends before the block does.
bool readPlainTablesHeader(std::span<const std::byte> block, Header& header);
bool readCodedTablesHeader(std::span<const std::byte> block, Header& header);

// Writes a "bvx2" header, of `mostHeaderSize` bytes at most, and gives its size. 8 bytes more are
// overwritten.
std::size_t writeCodedTablesHeader(const Header& header, std::byte* place);

// What a "bvx1" or "bvx2" block takes in the stream and gives, for a reader that only passes by.
// False if the input ends in its header or the header's size can't be right.
bool readSizes(std::span<const std::byte> block, std::uint64_t& blockSize,
               std::uint64_t& plainSize);

}  // namespace tolvanite::detail::lzfse
