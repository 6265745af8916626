#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The numbers of the LZFSE stream form.
//
// A stream is a row of blocks, each opened by a magic. A block of matches holds literals and
// triplets: append L literals, then copy M bytes from D bytes back, where D may reach into any
// block before and 0 stands for the D of the triplet before. Literals, L, M and D are entropy
// coded.
namespace tolvanite::detail::lzfse {

inline constexpr std::uint32_t endMagic = 0x24787662;          // "bvx$"
inline constexpr std::uint32_t storedMagic = 0x2d787662;       // "bvx-"
inline constexpr std::uint32_t plainTablesMagic = 0x31787662;  // "bvx1"
inline constexpr std::uint32_t codedTablesMagic = 0x32787662;  // "bvx2"
inline constexpr std::uint32_t lzvnMagic = 0x6e787662;         // "bvxn"

inline constexpr std::size_t storedHeaderSize = 8;
inline constexpr std::size_t lzvnHeaderSize = 12;
inline constexpr std::size_t plainTablesHeaderSize = 772;
inline constexpr std::size_t fixedHeaderSize = 32;  // of "bvx2", before its coded tables
inline constexpr std::size_t mostHeaderSize = 662;  // of "bvx2", with them

inline constexpr std::size_t lengthSymbols = 20;  // of L and of M
inline constexpr std::size_t distanceSymbols = 64;
inline constexpr std::size_t literalSymbols = 256;

inline constexpr std::size_t lengthStates = 64;
inline constexpr std::size_t distanceStates = 256;
inline constexpr std::size_t literalStates = 1024;

inline constexpr std::uint32_t mostLiterals = 40000;
inline constexpr std::uint32_t mostTriplets = 10000;
inline constexpr std::uint32_t mostL = 315;
inline constexpr std::uint32_t mostM = 2359;
inline constexpr std::uint32_t mostD = 262139;

// The triplets' payload begins with so many bytes that are never read.
inline constexpr std::size_t tripletPadding = 8;

// A value is the base of its symbol plus a number of so many extra bits.
template <std::size_t count>
struct ValueCode {
  std::array<std::uint32_t, count> base{};
  std::array<std::uint8_t, count> extraBits{};
};

template <std::size_t count>
constexpr ValueCode<count> valueCode(std::array<std::uint8_t, count> extraBits) {
  ValueCode<count> result{.extraBits = extraBits};
  for (std::size_t symbol = 1; symbol < count; ++symbol) {
    result.base[symbol] = result.base[symbol - 1] + (std::uint32_t{1} << extraBits[symbol - 1]);
  }
  return result;
}

inline constexpr auto codeOfL =
    valueCode<lengthSymbols>({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 3, 5, 8});
inline constexpr auto codeOfM =
    valueCode<lengthSymbols>({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 5, 8, 11});
inline constexpr auto codeOfD = [] {
  std::array<std::uint8_t, distanceSymbols> extraBits{};
  for (std::size_t symbol = 0; symbol < distanceSymbols; ++symbol) {
    extraBits[symbol] = static_cast<std::uint8_t>(symbol / 4);
  }
  return valueCode(extraBits);
}();

struct Triplet {
  std::uint16_t l = 0;
  std::uint16_t m = 0;
  std::uint32_t d = 0;
};

}  // namespace tolvanite::detail::lzfse
