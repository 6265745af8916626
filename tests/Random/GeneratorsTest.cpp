#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Random/Arc4Random.h>
#include <Tolvanite/Random/ConstantNonRandom.h>
#include <Tolvanite/Random/DevRandom.h>
#include <Tolvanite/Random/Lfsr176.h>
#include <Tolvanite/Random/Lfsr258.h>
#include <Tolvanite/Random/MersenneTwister.h>
#include <Tolvanite/Random/Xoroshiro.h>

using namespace tolvanite;

namespace {

using Words = std::vector<std::uint64_t>;

const auto aborts = testing::KilledBySignal(SIGABRT);

// Gives a list of words, and notes how many were taken.
struct Scripted : RandomWordGeneratorDefaults<Scripted> {
  Scripted() = default;
  explicit Scripted(Words script) : words(std::move(script)) {}
  std::uint64_t randomWord() { return words.at(taken++); }
  Words words;
  std::size_t taken = 0;
};

template <typename... Generators>
constexpr bool makeWords = (RandomWordGenerator<Generators> && ...);
template <typename... Generators>
constexpr bool driveTheStandard = (std::uniform_random_bit_generator<Generators> && ...);
static_assert(makeWords<Lfsr258, Lfsr176, Xoroshiro, ConstantNonRandom, MersenneTwister>);
static_assert(driveTheStandard<Lfsr258, Lfsr176, Xoroshiro, ConstantNonRandom, MersenneTwister,
                               DevRandom, Arc4Random>);
static_assert(RandomGenerator<DevRandom> && !RandomWordGenerator<DevRandom>);
static_assert(RandomGenerator<Arc4Random> && !RandomWordGenerator<Arc4Random>);

// The first three words and the thousandth.
template <typename Generator>
Words wordsOf(Generator generator) {
  Words words{generator.random64(), generator.random64(), generator.random64()};
  for (int place = 3; place < 999; ++place) generator.random64();
  words.push_back(generator.random64());
  return words;
}

TEST(GeneratorsTest, streamsOfAnotherImplementation) {
  constexpr std::uint64_t a = 0x9E3779B97F4A7C15, b = 2 * a, c = 3 * a, d = 4 * a, e = 5 * a;
  EXPECT_EQ(wordsOf(Lfsr258(a, b, c, d, e)), (Words{0xB81D6EA2E782B1FA, 0x9434CDC3A8A1CE4F,
                                                    0xB6A602092F7117D8, 0x66AD62B3D9F4107C}));
  EXPECT_EQ(wordsOf(Lfsr176(a, b, c)), (Words{0xBD49EE10606FE19C, 0x409335E6E746E75D,
                                              0x558C82F6B20123E1, 0x5DAB2A6700CD27E9}));
  EXPECT_EQ(wordsOf(Xoroshiro(a, b)), (Words{0xDAA66D2C7DDF743F, 0xE80CB4FB22078DB9,
                                             0xFAFC725D47A96A76, 0xC2545A597473AA0E}));
}

TEST(GeneratorsTest, mersenneTwisterIsTheStandardOne) {
  for (const std::uint64_t seed : {std::uint64_t{0}, std::uint64_t{5489}, ~std::uint64_t{0}}) {
    std::mt19937_64 standard(seed);
    MersenneTwister generator(seed);
    EXPECT_EQ(generator.index, 312);
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(generator.random64(), standard()) << seed << ", " << i;
    Words filled(400);
    generator.randomize(std::as_writable_bytes(std::span(filled)));
    for (const std::uint64_t word : filled) ASSERT_EQ(word, standard()) << seed;
    MersenneTwister fork = generator;
    EXPECT_EQ(fork, generator);
    EXPECT_EQ(fork.random64(), generator.random64());
  }
}

TEST(GeneratorsTest, bytesOfWords) {
  const Words words{0x0807060504030201, 0x1817161514131211, 0x2827262524232221};
  for (std::size_t size = 0; size < 24; ++size) {
    std::vector<std::uint8_t> expected, bytes(size + 1, 0xEE);
    for (std::size_t i = 0; i < size / 8 * 8; ++i) {
      expected.push_back(static_cast<std::uint8_t>(i / 8 * 16 + i % 8 + 1));
    }
    for (std::size_t rest = size % 8; rest > 0; --rest) {
      expected.push_back(static_cast<std::uint8_t>(size / 8 * 16 + rest));
    }
    expected.push_back(0xEE);  // behind the buffer

    Scripted generator(words);
    generator.randomize(bytes.data(), static_cast<Int>(size));
    EXPECT_EQ(bytes, expected) << size;
    EXPECT_EQ(generator.taken, (size + 7) / 8) << size;
  }
  EXPECT_EQ(ConstantNonRandom(0x0102030405060708).random32(), 0x08070605U);
  // A generator that is filled from by way of a copy goes on where the fill ended.
  Xoroshiro filling(1, 2), drawing(1, 2);
  std::array<std::byte, 20> bytes{};
  filling.randomize(bytes.data(), 0);
  EXPECT_EQ(filling, drawing);
  filling.randomize(bytes);
  for (int i = 0; i < 3; ++i) drawing.random64();
  EXPECT_EQ(filling, drawing);
  EXPECT_EXIT(filling.randomize(bytes.data(), -1), aborts, "Fatal error");
  EXPECT_EXIT(Arc4Random().randomize(bytes.data(), -1), aborts, "Fatal error");
}

TEST(GeneratorsTest, boundedDraws) {
  constexpr auto allOnes = std::numeric_limits<std::uint64_t>::max();
  const auto expectDraw = [](std::uint64_t max, const Words& draws, std::uint64_t result) {
    Scripted generator(draws);
    EXPECT_EQ(generator.random64(max), result) << max;
    EXPECT_EQ(generator.taken, draws.size()) << max;
  };
  expectDraw(0, {}, 0);
  expectDraw(allOnes, {7}, 7);
  expectDraw(9, {4, 0, 5}, 5);  // the threshold is 5
  expectDraw(9, {19}, 9);
  expectDraw(3, {2, 3}, 3);  // a bound that divides the count of words has a threshold too
  expectDraw(1ULL << 63, {(1ULL << 63) - 3, (1ULL << 63) - 2}, (1ULL << 63) - 2);
  expectDraw(allOnes - 1, {0}, 0);
  expectDraw(allOnes - 1, {allOnes}, 0);
  // The draws of 32 bits are low halves of words, reversed.
  Scripted generator(Words{0x04000000, 0x05000000, 0x44332211, 0x0F000000});
  EXPECT_EQ(generator.random32(9), 5U);
  EXPECT_EQ(generator.random32(std::numeric_limits<std::uint32_t>::max()), 0x11223344U);
  EXPECT_EQ(generator.random32(0), 0U);
  EXPECT_EQ(generator.random32(9), 5U);
  EXPECT_EQ(generator.taken, 4U);
}

TEST(GeneratorsTest, doubles) {
  constexpr std::uint64_t all53 = 0x1FFFFFFFFFFFFF, above = ~all53;
  EXPECT_EQ(halfOpenDoubleFrom64(all53), 1 - 0x1p-53);
  EXPECT_EQ(halfOpenDoubleFrom64(above | 1), 0x1p-53);
  EXPECT_EQ(closedDoubleFrom64(all53), 1.0);
  EXPECT_EQ(closedDoubleFrom64(above), 0.0);
  EXPECT_EQ(closedDoubleFrom64(1), 1.1102230246251568e-16);
  EXPECT_EQ(openDoubleFrom64(~std::uint64_t{0xFFFFFFFFFFFFF}), 0.5 * 1.1102230246251568e-16);
  EXPECT_EQ(openDoubleFrom64(~std::uint64_t{0}), 0.5);
  EXPECT_LT(openDoubleFrom64(~std::uint64_t{1}), 0.5);
  Scripted generator(Words{all53, all53, 1});
  EXPECT_EQ(generator.randomHalfOpen(), halfOpenDoubleFrom64(all53));
  EXPECT_EQ(generator.randomClosed(), closedDoubleFrom64(all53));
  EXPECT_EQ(generator.randomOpen(), openDoubleFrom64(1));
}

// Chi-square of draws from 0 to 6; above 33 by chance once in 100,000 times.
template <typename Draw>
double chiSquareOfSeven(Draw draw) {
  constexpr int count = 70'000;
  std::array<int, 7> found{};
  for (int i = 0; i < count; ++i) ++found.at(static_cast<std::size_t>(draw()));
  return std::accumulate(found.begin(), found.end(), 0.0, [](double sum, int cell) {
    return sum + std::pow(cell - count / 7, 2) / (count / 7);
  });
}

template <typename Generator>
void expectEvenDraws(Generator generator, const std::string& name) {
  EXPECT_LT(chiSquareOfSeven([&] { return generator.random64(6); }), 33) << name;
  EXPECT_LT(chiSquareOfSeven([&] { return generator.random32(6); }), 33) << name;
  EXPECT_LT(chiSquareOfSeven([&] { return generator.randomHalfOpen() * 7; }), 33) << name;
  std::vector<int> places{0, 1, 2, 3, 4, 5, 6};
  const auto fourth = [&] { return std::ranges::shuffle(places, generator), places[3]; };
  EXPECT_LT(chiSquareOfSeven(fourth), 33) << name;
}

TEST(GeneratorsTest, evenDraws) {
  expectEvenDraws(Lfsr258(1u << 20, 1u << 21, 1u << 22, 1u << 23, 1u << 24), "Lfsr258");
  expectEvenDraws(Lfsr176(123'456'789, 987'654'321, 192'837'465), "Lfsr176");
  expectEvenDraws(Xoroshiro(123'456'789, 987'654'321), "Xoroshiro");
  expectEvenDraws(MersenneTwister(42), "MersenneTwister");
}

TEST(GeneratorsTest, arc4RandomIsTheReplaceableSource) {
  struct Source : SystemRandom {
    std::uint32_t word() override { return 0xDDCCBBAA; }
    void fill(std::span<std::byte> bytes) override {
      std::ranges::fill(bytes, static_cast<std::byte>(bytes.size()));
    }
  } source;
  SystemRandom* const before = setSystemRandom(&source);
  Arc4Random generator;
  EXPECT_EQ(generator.random32(), 0xDDCCBBAAU);
  EXPECT_EQ(generator.random64(), 0x0808080808080808U);
  setSystemRandom(before);
}

}  // namespace
