#include <Tolvanite/Compression/detail/FseTables.h>

#include <algorithm>

namespace tolvanite::detail::lzfse {

namespace {

// Takes `excess` away from the frequencies, first from the large ones, and leaves 1 at least.
void takeAway(std::uint32_t excess, std::span<std::uint16_t> frequencies) {
  for (int shift = 3; shift >= 0; --shift) {
    for (std::uint16_t& frequency : frequencies) {
      if (excess == 0) return;
      if (frequency <= 1) continue;
      const std::uint32_t part = std::min((frequency - std::uint32_t{1}) >> shift, excess);
      frequency = static_cast<std::uint16_t>(frequency - part);
      excess -= part;
    }
  }
}

}  // namespace

void scaleToStates(std::span<const std::uint32_t> counts, std::uint32_t states,
                   std::span<std::uint16_t> frequencies) {
  const std::uint64_t total =
      std::max(std::accumulate(counts.begin(), counts.end(), std::uint64_t{0}), std::uint64_t{1});
  std::ranges::fill(frequencies, std::uint16_t{0});
  std::int64_t rest = states;
  for (std::size_t symbol = 0; symbol < counts.size(); ++symbol) {
    if (counts[symbol] == 0) continue;
    const std::uint64_t rounded = (counts[symbol] * std::uint64_t{states} + total / 2) / total;
    frequencies[symbol] = static_cast<std::uint16_t>(std::max<std::uint64_t>(rounded, 1));
    rest -= frequencies[symbol];
  }
  const auto largest = std::ranges::max_element(frequencies);
  if (-rest < *largest / 4) {
    *largest = static_cast<std::uint16_t>(*largest + rest);
  } else if (rest < 0) {
    takeAway(static_cast<std::uint32_t>(-rest), frequencies);
  } else {
    frequencies.front() = static_cast<std::uint16_t>(frequencies.front() + rest);
  }
}

void makeEncoderTable(std::span<const std::uint16_t> frequencies, std::uint32_t states,
                      std::span<EncoderEntry> table) {
  std::uint32_t first = 0;
  for (std::size_t symbol = 0; symbol < frequencies.size(); ++symbol) {
    const std::uint32_t frequency = frequencies[symbol];
    if (frequency == 0) continue;
    // States from frequency << bits on give off so many bits, those below one less.
    const auto bits =
        static_cast<std::uint32_t>(std::bit_width(states) - std::bit_width(frequency));
    table[symbol] = {.bitsStep = (bits << 16) - (frequency << bits),
                     .stateStep = states + first - frequency};
    first += frequency;
  }
}

}  // namespace tolvanite::detail::lzfse
