#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

// Numbers in the byte order of the compressed formats, wherever they stand.
namespace tolvanite::detail {

template <typename Number>
Number loadLittle(const std::byte* place) noexcept {
  static_assert(std::endian::native == std::endian::little);
  Number result;
  std::memcpy(&result, place, sizeof result);
  return result;
}

template <typename Number>
void storeLittle(std::byte* place, Number number) noexcept {
  std::memcpy(place, &number, sizeof number);
}

}  // namespace tolvanite::detail
