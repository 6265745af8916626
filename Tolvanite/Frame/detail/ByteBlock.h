// Sixteen bytes of a text that are looked at at once.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace tolvanite::detail {

/// Answers are masks with a bit for each byte, the lowest for the first byte.
class ByteBlock {
 public:
  static constexpr std::size_t size = 16;

#ifdef __SSE2__
  /// The sixteen bytes at `bytes`.
  explicit ByteBlock(const char* bytes)
      : bytes_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes))) {}

  void store(char* to) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes_); }

  /// The bytes above 0x7F.
  std::uint32_t nonAscii() const { return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes_)); }

  /// The bytes above 0x7F, and those equal to `byte`.
  std::uint32_t nonAsciiOr(char byte) const { return mask(_mm_or_si128(bytes_, equal(byte))); }

  /// The bytes that are one of those given.
  template <typename... Bytes>
  std::uint32_t equalTo(char first, Bytes... more) const {
    __m128i found = equal(first);
    ((found = _mm_or_si128(found, equal(more))), ...);
    return mask(found);
  }

  /// How many bytes are `byte`.
  std::size_t countOf(char byte) const {
    const __m128i ones = _mm_and_si128(equal(byte), _mm_set1_epi8(1));
    const __m128i sums = _mm_sad_epu8(ones, _mm_setzero_si128());
    return static_cast<std::size_t>(_mm_cvtsi128_si32(sums) + _mm_extract_epi16(sums, 4));
  }

 private:
  __m128i equal(char byte) const { return _mm_cmpeq_epi8(bytes_, _mm_set1_epi8(byte)); }
  static std::uint32_t mask(__m128i bytes) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes));
  }

  __m128i bytes_;
#else
  explicit ByteBlock(const char* bytes) { std::memcpy(bytes_, bytes, size); }

  void store(char* to) const { std::memcpy(to, bytes_, size); }

  std::uint32_t nonAscii() const {
    return maskOf([](char byte) { return static_cast<unsigned char>(byte) > 0x7F; });
  }

  std::uint32_t nonAsciiOr(char byte) const { return nonAscii() | equalTo(byte); }

  template <typename... Bytes>
  std::uint32_t equalTo(Bytes... wanted) const {
    return maskOf([=](char byte) { return ((byte == wanted) || ...); });
  }

  std::size_t countOf(char byte) const {
    return static_cast<std::size_t>(std::popcount(equalTo(byte)));
  }

 private:
  template <typename Accepts>
  std::uint32_t maskOf(Accepts accepts) const {
    std::uint32_t result = 0;
    for (std::size_t i = 0; i < size; ++i) result |= std::uint32_t{accepts(bytes_[i])} << i;
    return result;
  }

  char bytes_[size];
#endif
};

/// How many bytes of a text are `byte`.
inline std::size_t countByte(std::string_view text, char byte) {
  std::size_t count = 0, position = 0;
  for (; position + ByteBlock::size <= text.size(); position += ByteBlock::size) {
    count += ByteBlock(text.data() + position).countOf(byte);
  }
  for (; position < text.size(); ++position) count += text[position] == byte ? 1 : 0;
  return count;
}

inline bool isAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

/// The place of the first byte at `from` or behind it that the masks and `accepts` tell; the size
/// of the text if there is none. `maskOf` takes a block, `accepts` a byte; both ask the same.
template <typename MaskOf, typename Accepts>
std::size_t findByte(std::string_view text, std::size_t from, MaskOf maskOf, Accepts accepts) {
  for (; from + ByteBlock::size <= text.size(); from += ByteBlock::size) {
    const std::uint32_t mask = maskOf(ByteBlock(text.data() + from));
    if (mask != 0) return from + static_cast<std::size_t>(std::countr_zero(mask));
  }
  while (from < text.size() && !accepts(text[from])) ++from;
  return from;
}

/// The place of the first byte above 0x7F at `from` or behind it, or the size of the text.
inline std::size_t findNonAscii(std::string_view text, std::size_t from = 0) {
  return findByte(
      text, from, [](ByteBlock block) { return block.nonAscii(); },
      [](char byte) { return !isAscii(byte); });
}

inline bool isAscii(std::string_view text) { return findNonAscii(text) == text.size(); }

}  // namespace tolvanite::detail
