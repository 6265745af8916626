// Reading UTF-8 by code points.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tolvanite::detail {

/// What stands for a malformed sequence among code points.
inline constexpr std::int32_t malformed = -1;

/// Reads one code point, or one malformed sequence, at `position`, which must be within the text,
/// and moves `position` behind it. A malformed sequence is as long as it could have been the start
/// of a well-formed one, and at least a byte.
std::int32_t readCodePoint(std::string_view text, std::size_t& position);

/// As `readCodePoint`, with what is no ASCII told apart from the simple case at once.
inline std::int32_t readCodePointInline(std::string_view text, std::size_t& position) {
  const auto byte = static_cast<unsigned char>(text[position]);
  if (byte >= 0x80) return readCodePoint(text, position);
  ++position;
  return byte;
}

/// Where the first `count` characters of a text end, and how many of them it has not.
struct CharacterPlace {
  std::size_t offset;
  std::int64_t missing;
};
CharacterPlace placeBehindCharacters(std::string_view text, std::int64_t count);

}  // namespace tolvanite::detail
