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

struct LiteralEntry {
  std::uint8_t bits = 0;  // that the next state takes
  std::byte literal{};
  std::uint16_t base = 0;  // of the next state
};

// Of the states of L, M and D. The bits of the next state come before those of the value.
struct ValueEntry {
  std::uint8_t stateBits = 0;
  std::uint8_t extraBits = 0;
  std::uint16_t stateBase = 0;
  std::uint32_t valueBase = 0;
};

// The encoder counts its states from the number of states on, up to twice as many. Of such a state
// it gives off the low bits, (state + bitsStep) >> 16 of them, and adds stateStep to the rest.
struct EncoderEntry {
  std::uint32_t bitsStep = 0;
  std::uint32_t stateStep = 0;
};

inline std::uint32_t sumOf(std::span<const std::uint16_t> frequencies) {
  return std::accumulate(frequencies.begin(), frequencies.end(), std::uint32_t{0});
}

// Calls `set(state, symbol, bits, base)` for the states in order. The frequencies' sum must be no
// more than `states`; states beyond the sum are not set.
template <typename Set>
void forEachState(std::uint32_t states, std::span<const std::uint16_t> frequencies, Set set) {
  std::uint32_t state = 0;
  for (std::size_t symbol = 0; symbol < frequencies.size(); ++symbol) {
    const std::uint32_t frequency = frequencies[symbol];
    if (frequency == 0) continue;
    const auto bits =
        static_cast<std::uint32_t>(std::bit_width(states) - std::bit_width(frequency));
    const std::uint32_t longOnes = (2 * states >> bits) - frequency;
    for (std::uint32_t j = 0; j < frequency; ++j, ++state) {
      if (j < longOnes) {
        set(state, symbol, bits, ((frequency + j) << bits) - states);
      } else {
        set(state, symbol, bits - 1, (j - longOnes) << (bits - 1));
      }
    }
  }
}

inline void makeLiteralTable(std::span<const std::uint16_t> frequencies,
                             std::span<LiteralEntry, literalStates> table) {
  forEachState(literalStates, frequencies, [&](auto state, auto symbol, auto bits, auto base) {
    table[state] = {static_cast<std::uint8_t>(bits), static_cast<std::byte>(symbol),
                    static_cast<std::uint16_t>(base)};
  });
}

template <std::size_t states, std::size_t symbols>
void makeValueTable(std::span<const std::uint16_t> frequencies, const ValueCode<symbols>& code,
                    std::array<ValueEntry, states>& table) {
  forEachState(states, frequencies, [&](auto state, auto symbol, auto bits, auto base) {
    table[state] = {static_cast<std::uint8_t>(bits), code.extraBits[symbol],
                    static_cast<std::uint16_t>(base), code.base[symbol]};
  });
}

// Scales counts to frequencies whose sum is `states` and of which none that is counted is 0.
// Without any count, symbol 0 gets all.
void scaleToStates(std::span<const std::uint32_t> counts, std::uint32_t states,
                   std::span<std::uint16_t> frequencies);

void makeEncoderTable(std::span<const std::uint16_t> frequencies, std::uint32_t states,
                      std::span<EncoderEntry> table);

}  // namespace tolvanite::detail::lzfse
