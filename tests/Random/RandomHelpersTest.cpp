#include <cmath>
#include <csignal>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Random/MersenneTwister.h>
#include <Tolvanite/Random/RandomBool.h>
#include <Tolvanite/Random/RandomDouble.h>
#include <Tolvanite/Random/RandomInt.h>
#include <Tolvanite/Random/RandomUInt32.h>

#include <tests/Support/ScriptedRandom.h>

using namespace tolvanite;
using tolvanite::test::ScriptedRandom;

namespace {

const auto aborts = testing::KilledBySignal(SIGABRT);
constexpr Int highest = std::numeric_limits<Int>::max(), lowest = std::numeric_limits<Int>::min();
constexpr Int million = 1'000'000;
constexpr std::uint32_t highest32 = std::numeric_limits<std::uint32_t>::max();

// Answers draws of words as a block says.
class Words : public SystemRandom {
 public:
  explicit Words(std::function<std::uint32_t()> draw) : draw_(std::move(draw)) {}
  explicit Words(std::deque<std::uint32_t> words)
      : Words([words = std::move(words)]() mutable {
          const std::uint32_t word = words.at(0);
          words.pop_front();
          return word;
        }) {}
  ~Words() override { setSystemRandom(before_); }
  std::uint32_t word() override { return draw_(); }

 private:
  std::function<std::uint32_t()> draw_;
  SystemRandom* before_ = setSystemRandom(this);
};

TEST(RandomHelpersTest, integers) {
  ScriptedRandom random({8, 9, 3, 0, 9, 7, 10, 4, 1, 0, 0, 1, 0, 8, 3, 3, 1, 2});
  EXPECT_EQ(RandomInt::random(), 8);
  EXPECT_EQ(RandomInt::random(9), 9);
  EXPECT_EQ(RandomInt::random(0), 0) << "without a draw";
  EXPECT_EQ(RandomInt::randomExcluding(9, {0, 3}), 9);
  EXPECT_EQ(RandomInt::randomNumber(), 7);
  EXPECT_EQ(RandomInt::randomNumber(-5, 5), 5);
  EXPECT_EQ(RandomInt::randomNumber(lowest, lowest + Int{highest32} - 1), lowest + 4);
  EXPECT_EQ(RandomInt::randomNumber(3, 3), 3) << "without a draw";
  EXPECT_EQ(RandomInt::randomExtreme(highest), 0);
  EXPECT_EQ(RandomInt::randomExtreme(), 4294967294);
  EXPECT_EQ(RandomInt::randomExtreme(0), 0) << "with a draw";
  EXPECT_EQ(RandomInt::coinToss(), 1);
  EXPECT_EQ(RandomInt::coinToss(6), -6);
  EXPECT_EQ(RandomUInt32::random(), 8U);
  EXPECT_EQ(RandomUInt32::random(4), 3U);
  EXPECT_EQ(RandomUInt32::randomExcluding(4, {1, 3}), 2U);
  EXPECT_EQ(random.bounds,
            (std::vector<std::uint32_t>{highest32, 10, 10, 10, 10, 101, 11, highest32, 2, 2, 2, 2,
                                        2, highest32, 4, 4, 4, 4}));
}

TEST(RandomHelpersTest, truthValues) {
  ScriptedRandom random({0, 1, 0, 1, 49'999, 50'000, 1, 99'999, 0, 12'499, 12'500});
  EXPECT_TRUE(RandomBool::coinToss());
  EXPECT_FALSE(RandomBool::coinToss());
  EXPECT_TRUE(RandomBool::probabilityOneTo(1));
  EXPECT_FALSE(RandomBool::probabilityOneTo(9));
  EXPECT_FALSE(RandomBool::probabilityOneTo(0)) << "without a draw";
  EXPECT_TRUE(RandomBool::probability(0.5));
  EXPECT_FALSE(RandomBool::probability(0.5));
  EXPECT_FALSE(RandomBool::probability(0.000019)) << "cut off to 1";
  EXPECT_TRUE(RandomBool::probability(42'949.67295));
  EXPECT_FALSE(RandomBool::probability(-0.0000099));
  EXPECT_TRUE(RandomBool::probabilityPercent(12.5));
  EXPECT_FALSE(RandomBool::probabilityPercent(12.5));
  constexpr std::uint32_t k = 100'000;
  EXPECT_EQ(random.bounds, (std::vector<std::uint32_t>{2, 2, 2, 10, k, k, k, k, k, k, k}));
}

TEST(RandomHelpersTest, fatalArguments) {
  const std::string atLeast1 = "Fatal error: maxValue has to be at least 1: file .*HelpersTest";
  EXPECT_EXIT(RandomInt::random(-1), aborts, atLeast1);
  EXPECT_EXIT(RandomInt::randomExtreme(-1), aborts, atLeast1);
  EXPECT_EXIT(RandomInt::randomExcluding(0, {}), aborts, atLeast1);
  EXPECT_EXIT(RandomInt::randomNumber(5, 4), aborts, "maxValue 4 is below minValue 5: file");
  const std::string overflow = "Fatal error: Arithmetic overflow: file .*HelpersTest";
  EXPECT_EXIT(RandomInt::random(highest32), aborts, overflow);
  EXPECT_EXIT(RandomInt::randomExcluding({1}), aborts, overflow);
  EXPECT_EXIT(RandomInt::randomNumber(0, highest32), aborts, overflow);
  EXPECT_EXIT(RandomInt::randomNumber(-2, highest), aborts, overflow);
  EXPECT_EXIT((ScriptedRandom({0}), RandomInt::coinToss(lowest)), aborts, overflow)
      << "its negative";
  EXPECT_EXIT(RandomBool::probabilityOneTo(highest32), aborts, overflow);
  EXPECT_EXIT(RandomBool::probability(42'949.67296), aborts, overflow);
  EXPECT_EXIT(RandomBool::probability(-0.00001), aborts, overflow);
  EXPECT_EXIT(RandomBool::probability(std::nan("")), aborts, overflow);
  EXPECT_EXIT(RandomInt::random_gauss(2, -1), aborts, "maxValue is negative: -1: file");
  EXPECT_EXIT(RandomInt::random_gaussCollectOverflowValues(0, 9), aborts,
              "threshold .* is 0: file");
}

TEST(RandomHelpersTest, floatingPoint) {
  constexpr std::uint32_t all = highest32;
  const Words words(std::deque<std::uint32_t>{all, 1, all, 0, all, 0x80000000, all, all});
  EXPECT_EQ(RandomDouble::random(), 1.0);
  EXPECT_EQ(RandomDouble::random(), 1 / 4294967295.0);
  EXPECT_EQ(RandomDouble::random(-2, 6), 6.0);
  EXPECT_EQ(RandomDouble::random(-2, 6), -2.0);
  EXPECT_EQ(RandomDouble::random(3), 3.0);
  EXPECT_EQ(RandomFloat::random(), 2147483648.0F * 2.3283064e-10F);
  EXPECT_EQ(RandomFloat::random(-2, 6), 6.0F);
  EXPECT_EQ(RandomFloat::random(3), 3.0F);
}

TEST(RandomHelpersTest, gaussianDraws) {
  using Draws = std::deque<std::uint32_t>;
  // The pair of `good` is 0.7609 and -1.0242; that of 2.2e9 twice is 2.594 twice.
  constexpr std::uint32_t good = 3'000'000'000, good2 = 1'000'000'000, far = 2'200'000'000;
  const auto gauss = [](const Draws& draws, double threshold, Int maxValue = million) {
    const Words words(draws);
    return RandomInt::random_gauss(threshold, maxValue);
  };
  const auto collect = [](const Draws& draws, double threshold, Int maxValue = million) {
    const Words words(draws);
    return RandomInt::random_gaussCollectOverflowValues(threshold, maxValue);
  };
  EXPECT_EQ(gauss({good, good2}, 2), 690'223);
  EXPECT_EQ(gauss({0, 0, good, good2}, 2), 690'223) << "outside of the circle";
  EXPECT_EQ(gauss({far, far, good, good2}, 2), 690'223) << "both beyond the threshold";
  EXPECT_EQ(gauss({2'400'000'000, 2'147'483'700}, 0.5), 500'001) << "the second of the pair";
  EXPECT_EQ(collect({good, good2}, 4), 595'112);
  EXPECT_EQ(collect({far, far}, 2), million);
  EXPECT_EQ(collect({highest32 - far, highest32 - far}, 2), 0);
  EXPECT_EQ(collect({far, far}, 2, highest), highest) << "and not one more";
  EXPECT_EQ(gauss({}, 2, 0) + collect({}, 4, 0), 0) << "without a draw";
}

// Mean and standard deviation of 20,000 draws by a fixed stream.
std::pair<double, double> moments(const std::function<Int()>& draw) {
  MersenneTwister generator(42);
  const Words words([&] { return generator.random32(); });
  constexpr int count = 20'000;
  double sum = 0, squares = 0;
  for (int i = 0; i < count; ++i) {
    const auto value = static_cast<double>(draw());
    sum += value;
    squares += value * value;
  }
  return {sum / count, std::sqrt(squares / count - sum / count * sum / count)};
}

TEST(RandomHelpersTest, gaussianShapes) {
  // Of a normal distribution without its tails beyond 2, the deviation is 0.8796.
  const auto [cutMean, cutDeviation] = moments([] { return RandomInt::random_gauss(2, 4000); });
  EXPECT_NEAR(cutMean, 2000, 30);
  EXPECT_NEAR(cutDeviation, 879.6, 20);
  const auto [mean, deviation] =
      moments([] { return RandomInt::random_gaussCollectOverflowValues(4, 8000); });
  EXPECT_NEAR(mean, 4000, 30);
  EXPECT_NEAR(deviation, 1000, 20);
  // Beyond 1 lie 15.87 % on each side.
  const auto [top, spread] = moments([] {
    return RandomInt::random_gaussCollectOverflowValues(1, 1000) == 1000 ? Int{10'000} : 0;
  });
  EXPECT_NEAR(top, 1587, 100);
}

}  // namespace
