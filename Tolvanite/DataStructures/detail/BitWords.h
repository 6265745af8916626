// What the containers of bits share: bit i stands in word i / 64 at 1 << (i % 64).
#pragma once

#include <bitset>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <ranges>
#include <span>
#include <type_traits>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite::detail {

using BitWord = std::uint64_t;
inline constexpr Int bitsOfWord = 64;

constexpr std::size_t wordOf(Int index) { return static_cast<std::size_t>(index / bitsOfWord); }
constexpr BitWord maskOf(Int index) { return BitWord{1} << (index % bitsOfWord); }
constexpr std::size_t wordsFor(Int bits) { return wordOf(bits) + (bits % bitsOfWord != 0 ? 1 : 0); }

/// All ones in the lowest `bits % 64` bits; in the whole word for a multiple of 64.
constexpr BitWord lastWordMask(Int bits) {
  const Int used = bits % bitsOfWord;
  return used == 0 ? ~BitWord{0} : (BitWord{1} << used) - 1;
}

TOLVANITE_EXPORT Int countOfSetBits(std::span<const BitWord> words) noexcept;

template <typename Range>
concept RangeOfBits =
    std::ranges::input_range<Range> && std::same_as<std::ranges::range_value_t<Range>, bool>;

/// Stands for one bit of a container that can be written to, as long as the container lives. What
/// is assigned goes into the container.
template <typename Container>
class BitReference {
 public:
  BitReference(Container& container, Int index) : container_(container), index_(index) {}
  BitReference(const BitReference&) = default;
  ~BitReference() = default;

  operator bool() const { return container_.bitAt(index_); }
  const BitReference& operator=(bool bit) const {
    container_.putBit(index_, bit);
    return *this;
  }
  const BitReference& operator=(const BitReference& other) const {
    return *this = static_cast<bool>(other);
  }
  /// Exchanges the bits themselves.
  friend void swap(BitReference a, BitReference b) {
    const bool before = a;
    a = b;
    b = before;
  }

 private:
  Container& container_;
  Int index_;
};

/// The bits of a container of `size` bits.
template <std::size_t size, typename Container>
std::bitset<size> bitsetOf(const Container& container) {
  std::bitset<size> result;
  for (std::size_t i = 0; i < size; ++i) result[i] = container[static_cast<Int>(i)];
  return result;
}

}  // namespace tolvanite::detail
