// The two interfaces of the random generators, and what every generator can do from its one source
// of words or bytes. All generators here are interchangeable, and each is a
// std::uniform_random_bit_generator too: it drives the standard distributions and std::shuffle.
//
//   template <RandomGenerator Generator>
//   bool throwSix(Generator& generator) { return generator.random64(5) == 5; }
//
//   Xoroshiro generator(1, 2);
//   throwSix(generator);
//   std::normal_distribution<double>(0, 1)(generator);
//
// A generator of one's own derives from RandomGeneratorDefaults and writes `randomize`, or from
// RandomWordGeneratorDefaults and writes `randomWord`:
//
//   struct Counting : tolvanite::RandomWordGeneratorDefaults<Counting> {
//     std::uint64_t randomWord() { return next++; }
//     std::uint64_t next = 0;
//   };
#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <source_location>
#include <span>
#include <type_traits>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Random/RandomConversions.h>

namespace tolvanite {

/// A source of random bytes and numbers. Made without arguments, it is seeded by the system.
template <typename G>
concept RandomGenerator =
    std::default_initializable<G> &&
    requires(G& generator, void* buffer, Int size, std::uint64_t max64, std::uint32_t max32) {
      generator.randomize(buffer, size);
      { generator.random64() } -> std::same_as<std::uint64_t>;
      { generator.random32() } -> std::same_as<std::uint32_t>;
      { generator.random64(max64) } -> std::same_as<std::uint64_t>;
      { generator.random32(max32) } -> std::same_as<std::uint32_t>;
      { generator.randomHalfOpen() } -> std::same_as<double>;
      { generator.randomClosed() } -> std::same_as<double>;
      { generator.randomOpen() } -> std::same_as<double>;
    };

/// A random generator that makes whole words.
template <typename G>
concept RandomWordGenerator =
    RandomGenerator<G> && std::unsigned_integral<typename G::WordType> && requires(G& generator) {
      { generator.randomWord() } -> std::same_as<typename G::WordType>;
    };

namespace detail {

// A number from 0 to `max` by plain draws; those below a threshold are drawn again. It is
// deliberate that the threshold comes from the highest word and not from the count of words, one
// more: it leaves a bias of one word in all, and another threshold would give other streams.
template <std::unsigned_integral Word, typename Draw>
constexpr Word drawUpTo(Word max, Draw draw) {
  constexpr Word allOnes = std::numeric_limits<Word>::max();
  if (max == 0) return 0;
  if (max == allOnes) return draw();
  const Word count = static_cast<Word>(max + 1);
  Word drawn = draw();
  // The threshold is below the count, so that most draws pass without it.
  if (drawn < count) [[unlikely]] {
    const Word threshold = allOnes % count;
    while (drawn < threshold) drawn = draw();
  }
  return drawn % count;
}

constexpr std::uint32_t byteSwapped(std::uint32_t value) {
  return value >> 24 | (value >> 8 & 0xFF00U) | (value << 8 & 0xFF0000U) | value << 24;
}

}  // namespace detail

/// What a generator of the class `Derived` can do once it has `randomize(void* buffer, Int size)`.
template <typename Derived>
class RandomGeneratorDefaults {
 public:
  using result_type = std::uint64_t;

  /// The least that `operator()` can give: 0.
  static constexpr result_type min() { return 0; }
  /// The greatest that `operator()` can give: 2^64 - 1.
  static constexpr result_type max() { return std::numeric_limits<result_type>::max(); }

  /// `random64()`, under the name that the standard library calls.
  constexpr result_type operator()() { return self().random64(); }

  /// Fills the bytes.
  void randomize(std::span<std::byte> bytes) {
    self().randomize(static_cast<void*>(bytes.data()), static_cast<Int>(bytes.size()));
  }

  /// 64 random bits.
  std::uint64_t random64() {
    std::uint64_t bits = 0;
    self().randomize(static_cast<void*>(&bits), Int{sizeof bits});
    return bits;
  }
  /// 32 random bits.
  std::uint32_t random32() {
    std::uint32_t bits = 0;
    self().randomize(static_cast<void*>(&bits), Int{sizeof bits});
    return bits;
  }

  /// A number from 0 to `max`, both included; 0 without a draw for a `max` of 0. A generator that
  /// gives nothing but small numbers may never return.
  constexpr std::uint64_t random64(std::uint64_t max) {
    return detail::drawUpTo(max, [this] { return self().random64(); });
  }
  /// A number from 0 to `max` as by `random64(max)`, but from draws of 32 bits: other numbers.
  constexpr std::uint32_t random32(std::uint32_t max) {
    return detail::drawUpTo(max, [this] { return self().random32(); });
  }

  /// A number from 0, included, to 1, not included.
  constexpr double randomHalfOpen() { return halfOpenDoubleFrom64(self().random64()); }
  /// A number from 0 to 1, both included.
  constexpr double randomClosed() { return closedDoubleFrom64(self().random64()); }
  /// A number above 0 and below 0.5, not 1; see `openDoubleFrom64`.
  constexpr double randomOpen() { return openDoubleFrom64(self().random64()); }

  friend constexpr bool operator==(const RandomGeneratorDefaults&,
                                   const RandomGeneratorDefaults&) = default;

 private:
  constexpr Derived& self() { return static_cast<Derived&>(*this); }
};

/// What a generator of the class `Derived` can do once it has `std::uint64_t randomWord()`.
template <typename Derived>
class RandomWordGeneratorDefaults : public RandomGeneratorDefaults<Derived> {
  using Base = RandomGeneratorDefaults<Derived>;

 public:
  /// What `randomWord` gives.
  using WordType = std::uint64_t;

  using Base::random32;
  using Base::random64;
  using Base::randomize;

  /// One word.
  constexpr std::uint64_t random64() { return self().randomWord(); }
  /// What `randomize` of four bytes gives: the low half of one word, its bytes in reversed order.
  constexpr std::uint32_t random32() {
    return detail::byteSwapped(static_cast<std::uint32_t>(self().randomWord()));
  }

  /// Fills `size` bytes with whole words, lowest byte first. A rest of less than a word takes the
  /// low bytes of one more word, written backward from the last byte of the buffer. A negative
  /// size is fatal.
  void randomize(void* buffer, Int size,
                 std::source_location location = std::source_location::current()) {
    if (size < 0) fatalFailure("randomize of a negative size", location);
    auto* const bytes = static_cast<std::byte*>(buffer);
    if constexpr (sizeof(Derived) <= 64 && std::is_trivially_copyable_v<Derived>) {
      // A copy on the stack can stay in registers, as the buffer can't overlap it.
      Derived copy = self();
      fill(copy, bytes, static_cast<std::size_t>(size));
      self() = copy;
    } else {
      fill(self(), bytes, static_cast<std::size_t>(size));
    }
  }

  friend constexpr bool operator==(const RandomWordGeneratorDefaults&,
                                   const RandomWordGeneratorDefaults&) = default;

 private:
  static void fill(Derived& generator, std::byte* bytes, std::size_t size) {
    constexpr std::size_t wordSize = sizeof(WordType);
    const std::size_t rest = size % wordSize;
    std::byte* const wholeEnd = bytes + (size - rest);
    for (; bytes != wholeEnd; bytes += wordSize) {
      const WordType word = littleEndian(generator.randomWord());
      std::memcpy(bytes, &word, wordSize);
    }
    if (rest == 0) return;
    WordType word = generator.randomWord();
    for (std::size_t place = rest; place > 0; --place, word >>= 8) {
      bytes[place - 1] = static_cast<std::byte>(word);
    }
  }

  static constexpr WordType littleEndian(WordType word) {
    if constexpr (std::endian::native == std::endian::little) return word;
    return WordType{detail::byteSwapped(static_cast<std::uint32_t>(word))} << 32 |
           detail::byteSwapped(static_cast<std::uint32_t>(word >> 32));
  }

  constexpr Derived& self() { return static_cast<Derived&>(*this); }
};

}  // namespace tolvanite
