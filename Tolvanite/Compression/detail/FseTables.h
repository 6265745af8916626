#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>

#include <Tolvanite/Compression/detail/LzfseFormat.h>

// Entropy coding with states, as LZFSE has it: a symbol of frequency f owns f consecutive states of
// N. Decoding takes the symbol of a state and goes to the state that the entry's base and some bits
// of the payload make; encoding goes the same way back.
namespace tolvanite::detail::lzfse {

// An entry is a word that one load brings. Its fields, from the lowest bit up, are
//
//    8 bits   how many bits of the payload it takes
//    8 bits   the literal
//   16 bits   the base of the next state
using LiteralEntry = std::uint32_t;

// Of the states of L, M and D. Of the bits that are taken, those of the next state come before the
// extra bits of the value:
//
//    8 bits   how many bits of the payload it takes
//    8 bits   how many of them are extra
//   32 bits   the base of the value
//   16 bits   the base of the next state
using ValueEntry = std::uint64_t;

// The encoder counts its states from the number of states on, up to twice as many. Of such a state
// it gives off the low bits, (state + bitsStep) >> 16 of them, and adds stateStep to the rest.
struct EncoderEntry {
  std::uint32_t bitsStep = 0;
  std::uint32_t stateStep = 0;
};

inline std::uint32_t sumOf(std::span<const std::uint16_t> frequencies) {
  return std::accumulate(frequencies.begin(), frequencies.end(), std::uint32_t{0});
}

// Fills the table with `entryOf(symbol, bits)`, to which the base of the next state is added in the
// highest 16 bits. The frequencies' sum must be no more than the number of states; states beyond
// the sum are not set.
template <typename Entry, std::size_t states, typename EntryOf>
void fillStates(std::span<const std::uint16_t> frequencies, std::array<Entry, states>& table,
                EntryOf entryOf) {
  constexpr int baseShift = 8 * sizeof(Entry) - 16;
  auto next = table.begin();
  const auto fill = [&next](std::size_t count, Entry entry, std::size_t base, std::uint32_t bits) {
    entry += static_cast<Entry>(base) << baseShift;
    for (; count > 0; --count, entry += Entry{1} << (bits + baseShift)) *next++ = entry;
  };
  for (std::size_t symbol = 0; symbol < frequencies.size(); ++symbol) {
    const std::size_t frequency = frequencies[symbol];
    if (frequency == 0) continue;
    const auto bits =
        static_cast<std::uint32_t>(std::bit_width(states) - std::bit_width(frequency));
    const std::size_t longOnes = (2 * states >> bits) - frequency;
    if (longOnes >= frequency) {
      fill(frequency, entryOf(symbol, bits), (frequency << bits) - states, bits);
    } else {
      fill(longOnes, entryOf(symbol, bits), (frequency << bits) - states, bits);
      fill(frequency - longOnes, entryOf(symbol, bits - 1), 0, bits - 1);
    }
  }
}

inline void makeLiteralTable(std::span<const std::uint16_t> frequencies,
                             std::array<LiteralEntry, literalStates>& table) {
  fillStates(frequencies, table, [](std::size_t symbol, std::uint32_t bits) {
    return bits | static_cast<LiteralEntry>(symbol) << 8;
  });
}

template <std::size_t states, std::size_t symbols>
void makeValueTable(std::span<const std::uint16_t> frequencies, const ValueCode<symbols>& code,
                    std::array<ValueEntry, states>& table) {
  fillStates(frequencies, table, [&code](std::size_t symbol, std::uint32_t bits) {
    const std::uint64_t extra = code.extraBits[symbol];
    return (bits + extra) | extra << 8 | std::uint64_t{code.base[symbol]} << 16;
  });
}

// Scales counts to frequencies whose sum is `states` and of which none that is counted is 0.
// Without any count, symbol 0 gets all.
void scaleToStates(std::span<const std::uint32_t> counts, std::uint32_t states,
                   std::span<std::uint16_t> frequencies);

void makeEncoderTable(std::span<const std::uint16_t> frequencies, std::uint32_t states,
                      std::span<EncoderEntry> table);

}  // namespace tolvanite::detail::lzfse
