#include <Tolvanite/Frame/Integers.h>

#include <csignal>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Frame/IndexRange.h>

using namespace tolvanite;

namespace {

using Ranges = std::vector<IndexRange>;

const auto aborts = testing::KilledBySignal(SIGABRT);
constexpr Int most = std::numeric_limits<Int>::max();
constexpr Int least = std::numeric_limits<Int>::min();

TEST(IntegersTest, moduloedIncreaseWraps) {
  const auto increased = [](Int value, Int by, Int modulo) {
    const bool wrapped = moduloedIncrease(value, by, modulo);
    return std::pair(value, wrapped);
  };
  EXPECT_EQ(increased(2, 1, 3), std::pair(Int{0}, true));
  EXPECT_EQ(increased(0, -1, 3), std::pair(Int{2}, true));
  EXPECT_EQ(increased(1, 1, 3), std::pair(Int{2}, false));
  EXPECT_EQ(increased(1, 100, 3), std::pair(Int{2}, true));
  EXPECT_EQ(increased(0, -6, 3), std::pair(Int{0}, true));
  EXPECT_EQ(increased(0, -7, 3), std::pair(Int{2}, true));
  EXPECT_EQ(increased(5, -1, 3), std::pair(Int{1}, true));
  EXPECT_EQ(increased(4, -2, 3), std::pair(Int{2}, false));
  EXPECT_EQ(increased(least, 1, -1), std::pair(Int{0}, true));
  EXPECT_EQ(moduloedIncreased(0, -7, 3), 2);
  EXPECT_EQ(moduloedIncreased(2, 3), 0);
  std::uint8_t small = 250;
  EXPECT_TRUE(moduloedIncrease(small, 5, 100));
  EXPECT_EQ(small, 55);
}

TEST(IntegersDeathTest, impossibleSteps) {
  Int value = most;
  EXPECT_EXIT(moduloedIncrease(value, 0, 3), aborts, "Fatal error: moduloedIncrease by 0");
  EXPECT_EXIT(moduloedIncrease(value, -1, 0), aborts, "Division by zero");
  EXPECT_EXIT(moduloedIncrease(value, 3), aborts, "Arithmetic overflow");
  EXPECT_EXIT(increaseAndReturnBeforeValue(value, 1), aborts, "Arithmetic overflow");
}

TEST(IntegersTest, increasesAndDigits) {
  Int value = 5;
  EXPECT_EQ(increaseAndReturnBeforeValue(value, 2), 5);
  EXPECT_EQ(increaseAndReturnAfterValue(value, -3), 4);
  EXPECT_EQ((std::vector{intKept(4, 4, 6, -1), intKept(6, 4, 6, -1), intKept(7, 4, 6, -1)}),
            (std::vector{4, 6, -1}));
  for (const Int number : {Int{0}, Int{9}, Int{10}, Int{-1}, Int{-10}, most, least}) {
    EXPECT_EQ(numberOfDigits(number), static_cast<Int>(std::to_string(number).size())) << number;
  }
}

TEST(IndexRangeTest, madeFromStarts) {
  EXPECT_EQ(makeRangesWithTotalCount(std::vector<Int>{0, 2, 2}, 6),
            (Ranges{{0, 2}, {2, 2}, {2, 6}}));
  EXPECT_EQ(makeRangesWithTotalCount(std::vector<int>{}, 6), Ranges{});
  EXPECT_EXIT(makeRangesWithTotalCount(std::vector<Int>{3, 1}, 6), aborts,
              "Range ends before it starts: 3..<1");
  EXPECT_EXIT(makeRangesWithTotalCount(std::vector<Int>{7}, 6), aborts, "7..<6");
}

TEST(IndexRangeTest, mergesInTheGivenOrder) {
  const IndexRange range(2, 4);
  EXPECT_TRUE(range.contains(2) && !range.contains(4) && !IndexRange(2, 2).contains(2));
  EXPECT_EQ(IndexRange::mergeAdjacentRanges({{0, 2}, {2, 4}, {4, 5}, {6, 7}}),
            (Ranges{{0, 5}, {6, 7}}));
  for (const Ranges& kept : {Ranges{}, Ranges{{2, 4}, {0, 2}}, Ranges{{0, 3}, {2, 4}}}) {
    EXPECT_EQ(IndexRange::mergeAdjacentRanges(kept), kept);
  }
}

}  // namespace
