// Hashes of texts, differing from process to process.
#pragma once

#include <cstdint>
#include <string_view>

#include <Tolvanite/Json/detail/Cell.h>

namespace tolvanite::detail {

/// Two words mixed into one.
inline std::uint64_t mixed(std::uint64_t a, std::uint64_t b) noexcept {
  __extension__ using Wide = unsigned __int128;
  const Wide product = Wide{a ^ 0x9e3779b97f4a7c15U} * (b ^ 0xe7037ed1a0b428dbU);
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

/// Equal for equal texts. Who writes a document can't know which texts collide.
std::uint64_t hashOfLongText(std::string_view text) noexcept;
std::uint64_t hashSeed() noexcept;

inline std::uint64_t hashOfText(const Cell& text) noexcept {
  if (text.isShortText()) return mixed(text.low() ^ hashSeed(), text.high());
  return hashOfLongText(text.textView());
}

}  // namespace tolvanite::detail
