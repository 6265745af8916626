// Finding the bytes that a JSON string can't hold as they are, 16 at a time.
#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <string_view>

#include <Tolvanite/Frame/detail/ByteBlock.h>

namespace tolvanite::detail {

inline constexpr std::size_t escapeBlock = ByteBlock::size;

constexpr bool needsEscape(char byte) {
  return static_cast<unsigned char>(byte) < 0x20 || byte == '"' || byte == '\\';
}

/// A bit for each byte of a block that is a control character, a double quote or a backslash.
inline unsigned escapesInBlock(const char* block) { return ByteBlock(block).controlsOr('"', '\\'); }

/// The place of the first such byte from `start` on; the length if there is none.
inline std::size_t findEscape(std::string_view text, std::size_t start) {
  return findByte(
      text, start, [](ByteBlock block) { return block.controlsOr('"', '\\'); }, needsEscape);
}

/// Copies up to the first such byte and gives its place. The text may be read, and the copy be
/// written, up to the next multiple of a block.
inline std::size_t copyToEscape(char* out, const char* text, std::size_t length) {
  for (std::size_t i = 0; i < length; i += escapeBlock) {
    std::memcpy(out + i, text + i, escapeBlock);
    unsigned mask = escapesInBlock(text + i);
    if (length - i < escapeBlock) mask &= (1U << (length - i)) - 1;
    if (mask != 0) return i + static_cast<std::size_t>(std::countr_zero(mask));
  }
  return length;
}

}  // namespace tolvanite::detail
