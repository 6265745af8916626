// Numbers as text, fast.
#pragma once

#include <cstddef>
#include <cstdint>

#include <Tolvanite/Json/detail/Cell.h>

namespace tolvanite::detail {

/// Room that writing a number needs; its text is shorter.
inline constexpr std::size_t numberTextRoom = 64;

/// Writes the text and gives its end. A floating-point number gets the fewest digits that read back
/// as the same number; if several have so few, the nearest. It is plain between 1e-5 and 1e17,
/// where whole numbers have no ".0", else as "1.5e+17", and so are whole numbers whose digits are
/// not exact.
/// @{
char* writeNumber(char* out, std::int64_t value) noexcept;
char* writeNumber(char* out, std::uint64_t value) noexcept;
char* writeNumber(char* out, double value) noexcept;
/// @}

/// The text of a cell with a number that is neither a truth value nor a decimal.
inline char* writeNumber(char* out, const Cell& number) noexcept {
  switch (number.tag()) {
    case CellTag::real:
      return writeNumber(out, number.realNumber());
    case CellTag::unsignedInteger:
      return writeNumber(out, number.low());
    default:
      return writeNumber(out, number.integer());
  }
}

}  // namespace tolvanite::detail
