// Reading UTF-8 by code points.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tolvanite::detail {

/// What stands for a malformed sequence among code points.
inline constexpr std::int32_t malformed = -1;

/// Reads one code point, or one malformed sequence, at `position`, which must be within the text,
/// and moves `position` behind it. A malformed sequence is as long as it could have been the start
/// of a well-formed one, and at least a byte.
std::int32_t readCodePoint(std::string_view text, std::size_t& position);

/// As `readCodePoint`, with the well-formed sequences read in place.
inline std::int32_t readCodePointInline(std::string_view text, std::size_t& position) {
  const auto byteAt = [bytes = text.data() + position](std::size_t i) {
    return std::uint32_t{static_cast<unsigned char>(bytes[i])};
  };
  const auto isTail = [](std::uint32_t byte) { return (byte & 0xC0U) == 0x80U; };
  const std::uint32_t lead = byteAt(0);
  if (lead < 0x80) {
    ++position;
    return static_cast<std::int32_t>(lead);
  }
  const std::size_t left = text.size() - position;
  if (lead >= 0xE0 && lead < 0xF0 && left >= 3) {
    const std::uint32_t value =
        (lead & 0xFU) << 12U | (byteAt(1) & 0x3FU) << 6U | (byteAt(2) & 0x3FU);
    const bool isSurrogate = (value & 0xF800U) == 0xD800U;
    if (isTail(byteAt(1)) && isTail(byteAt(2)) && value >= 0x800 && !isSurrogate) {
      position += 3;
      return static_cast<std::int32_t>(value);
    }
  } else if (lead >= 0xC2 && lead < 0xE0 && left >= 2) {
    if (isTail(byteAt(1))) {
      position += 2;
      return static_cast<std::int32_t>((lead & 0x1FU) << 6U | (byteAt(1) & 0x3FU));
    }
  } else if (lead >= 0xF0 && lead < 0xF5 && left >= 4) {
    const std::uint32_t value = (lead & 0x7U) << 18U | (byteAt(1) & 0x3FU) << 12U |
                                (byteAt(2) & 0x3FU) << 6U | (byteAt(3) & 0x3FU);
    const bool isInRange = value >= 0x10000 && value <= 0x10FFFF;
    if (isTail(byteAt(1)) && isTail(byteAt(2)) && isTail(byteAt(3)) && isInRange) {
      position += 4;
      return static_cast<std::int32_t>(value);
    }
  }
  return readCodePoint(text, position);
}

/// What a malformed sequence shows as where only scalars can stand.
inline constexpr char32_t replacementCharacter = 0xFFFD;

/// Calls `visit` with each Unicode scalar of the text, or U+FFFD for a malformed sequence.
template <typename Visit>
void visitScalars(std::string_view text, Visit visit) {
  for (std::size_t position = 0; position < text.size();) {
    const std::int32_t codePoint = readCodePointInline(text, position);
    visit(codePoint == malformed ? replacementCharacter : static_cast<char32_t>(codePoint));
  }
}

/// Whether a number is a Unicode scalar: no surrogate and not above U+10FFFF.
constexpr bool isScalar(std::uint64_t value) {
  return value < 0xD800 || (value > 0xDFFF && value <= 0x10FFFF);
}

/// Appends a Unicode scalar as UTF-8.
inline void appendScalar(std::string& text, char32_t scalar) {
  const auto tail = [scalar](unsigned shift) {
    return static_cast<char>(0x80U | ((scalar >> shift) & 0x3FU));
  };
  if (scalar < 0x80) {
    text += static_cast<char>(scalar);
  } else if (scalar < 0x800) {
    text += {static_cast<char>(0xC0U | scalar >> 6U), tail(0)};
  } else if (scalar < 0x10000) {
    text += {static_cast<char>(0xE0U | scalar >> 12U), tail(6), tail(0)};
  } else {
    text += {static_cast<char>(0xF0U | scalar >> 18U), tail(12), tail(6), tail(0)};
  }
}

/// Where the first `count` characters of a text end, and how many of them it has not.
struct CharacterPlace {
  std::size_t offset;
  std::int64_t missing;
};
CharacterPlace placeBehindCharacters(std::string_view text, std::int64_t count);

}  // namespace tolvanite::detail
