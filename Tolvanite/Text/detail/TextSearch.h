// Where a text occurs in another, byte for byte. The one search of the string toolkit: an empty
// text occurs nowhere, and occurrences do not overlap.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <Tolvanite/Frame/detail/ByteBlock.h>

namespace tolvanite::detail {

// Longer texts are looked for by the C library, whose search is linear whatever they hold; the
// blocks compare up to the whole text at each place.
inline constexpr std::size_t longestByBlocks = 64;

// Calls `visit` with the places where `wanted`, a short text, occurs at `from` or behind it.
// Each block is asked for the first and, further on, the last byte of the text at once.
template <typename Visit>
void visitByBlocks(std::string_view text, std::string_view wanted, std::size_t from, Visit visit) {
  const std::size_t length = wanted.size();
  const char first = wanted.front(), last = wanted.back();
  std::size_t position = from, next = from;
  for (; position + length - 1 + ByteBlock::size <= text.size(); position += ByteBlock::size) {
    const char* const bytes = text.data() + position;
    std::uint32_t mask = ByteBlock(bytes).equalTo(first);
    if (length > 1) mask &= ByteBlock(bytes + length - 1).equalTo(last);
    for (; mask != 0; mask &= mask - 1) {
      const std::size_t place = position + static_cast<std::size_t>(std::countr_zero(mask));
      // The first and the last byte are known to be right.
      if (length > 1 && place < next) continue;
      if (length > 2 && std::memcmp(text.data() + place + 1, wanted.data() + 1, length - 2) != 0) {
        continue;
      }
      next = place + length;
      if (!visit(place)) return;
    }
  }
  for (position = next > position ? next : position; position + length <= text.size();) {
    if (std::memcmp(text.data() + position, wanted.data(), length) != 0) {
      ++position;
      continue;
    }
    if (!visit(position)) return;
    position += length;
  }
}

/// Calls `visit` with each place where `wanted` occurs at `from` or behind it, in order, until it
/// answers false.
template <typename Visit>
void visitOccurrences(std::string_view text, std::string_view wanted, std::size_t from,
                      Visit visit) {
  if (wanted.empty()) return;
  if (wanted.size() <= longestByBlocks) return visitByBlocks(text, wanted, from, visit);
  while (from < text.size()) {
    const void* const found =
        memmem(text.data() + from, text.size() - from, wanted.data(), wanted.size());
    if (found == nullptr) return;
    const auto place = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
    if (!visit(place)) return;
    from = place + wanted.size();
  }
}

/// The first such place, or npos.
inline std::size_t findText(std::string_view text, std::string_view wanted, std::size_t from = 0) {
  std::size_t result = std::string_view::npos;
  visitOccurrences(text, wanted, from, [&](std::size_t place) {
    result = place;
    return false;
  });
  return result;
}

/// How often `wanted` occurs.
inline std::size_t countOccurrences(std::string_view text, std::string_view wanted) {
  std::size_t count = 0;
  if (wanted.size() == 1) return countByte(text, wanted.front());
  visitOccurrences(text, wanted, 0, [&](std::size_t) {
    ++count;
    return true;
  });
  return count;
}

}  // namespace tolvanite::detail
