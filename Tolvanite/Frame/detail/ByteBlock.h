// Sixteen bytes of a text that are looked at at once.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tolvanite::detail {

/// Answers are masks with a bit for each byte, the lowest for the first byte.
class ByteBlock {
 public:
  static constexpr std::size_t size = 16;

  /// The sixteen bytes at `bytes`.
  explicit ByteBlock(const char* bytes) { std::memcpy(&bytes_, bytes, size); }

  void store(char* to) const { std::memcpy(to, &bytes_, size); }

  /// The bytes above 0x7F.
  std::uint32_t nonAscii() const { return topBits(bytes_); }

  /// The bytes above 0x7F, and those equal to `byte`.
  std::uint32_t nonAsciiOr(char byte) const { return topBits(bytes_ | equal(byte)); }

  /// The bytes that are one of those given.
  template <typename... Chars>
  std::uint32_t equalTo(char first, Chars... more) const {
    return topBits((equal(first) | ... | equal(more)));
  }

  /// The bytes below 0x20, and those equal to one of the two.
  std::uint32_t controlsOr(char first, char second) const {
    const Signed controls = reinterpret_cast<Signed>((bytes_ >= splat(0)) & (bytes_ < splat(0x20)));
    return topBits(controls | equal(first) | equal(second));
  }

  /// How many bytes are `byte`.
  std::size_t countOf(char byte) const {
#ifdef __SSE2__
    // The sums of the absolute differences to 0 of the ones, for each half.
    const Halves sums = reinterpret_cast<Halves>(
        __builtin_ia32_psadbw128(reinterpret_cast<Bytes>(equal(byte) & splat(1)), Bytes{}));
    return static_cast<std::size_t>(sums[0] + sums[1]);
#else
    return static_cast<std::size_t>(std::popcount(equalTo(byte)));
#endif
  }

 private:
  // Vectors of the compiler, which need no header of the processor's own.
  using Bytes [[gnu::vector_size(16)]] = char;
  using Signed [[gnu::vector_size(16)]] = signed char;
  using Halves [[gnu::vector_size(16)]] = long long;

  static Signed splat(char byte) {
    const auto value = static_cast<signed char>(byte);
    return Signed{} + value;
  }

  Signed equal(char byte) const { return reinterpret_cast<Signed>(bytes_ == splat(byte)); }

  static std::uint32_t topBits(Signed bytes) {
#ifdef __SSE2__
    return static_cast<std::uint32_t>(__builtin_ia32_pmovmskb128(reinterpret_cast<Bytes>(bytes)));
#else
    std::uint32_t result = 0;
    for (std::size_t i = 0; i < size; ++i) result |= std::uint32_t{bytes[i] < 0} << i;
    return result;
#endif
  }

  Signed bytes_;
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
