// Finding the bytes that a JSON string can't hold as they are, 16 at a time.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tolvanite::detail {

inline constexpr std::size_t escapeBlock = 16;

constexpr bool needsEscape(char byte) {
  return static_cast<unsigned char>(byte) < 0x20 || byte == '"' || byte == '\\';
}

/// A bit for each byte of a block that is a control character, a double quote or a backslash.
inline unsigned escapesInBlock(const char* block) {
#if defined(__SSE2__)
  const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block));
  const __m128i lastControl = _mm_set1_epi8(0x1f);
  const __m128i controls = _mm_cmpeq_epi8(_mm_min_epu8(bytes, lastControl), bytes);
  const __m128i quotes = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('"'));
  const __m128i backslashes = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\\'));
  return static_cast<unsigned>(
      _mm_movemask_epi8(_mm_or_si128(controls, _mm_or_si128(quotes, backslashes))));
#else
  unsigned mask = 0;
  for (unsigned i = 0; i < escapeBlock; ++i) mask |= (needsEscape(block[i]) ? 1U : 0U) << i;
  return mask;
#endif
}

/// The place of the first such byte from `start` on; the length if there is none.
inline std::size_t findEscape(std::string_view text, std::size_t start) {
  for (; start + escapeBlock <= text.size(); start += escapeBlock) {
    const unsigned mask = escapesInBlock(text.data() + start);
    if (mask != 0) return start + static_cast<std::size_t>(std::countr_zero(mask));
  }
  while (start < text.size() && !needsEscape(text[start])) ++start;
  return start;
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
