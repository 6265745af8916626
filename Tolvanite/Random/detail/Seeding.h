// The seeds of generators that must not start from just any words.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tolvanite::detail {

// One random word for each limit, in order, drawn again until it is not below its limit.
template <std::size_t count, typename Draw>
std::array<std::uint64_t, count> wordsNotBelow(const std::array<std::uint64_t, count>& limits,
                                               Draw&& draw) {
  std::array<std::uint64_t, count> words{};
  for (std::size_t i = 0; i < count; ++i) {
    do words[i] = draw();
    while (words[i] < limits[i]);
  }
  return words;
}

}  // namespace tolvanite::detail
