#include <Tolvanite/Frame/detail/StableSort.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

using tolvanite::detail::stableSort;

namespace {

using Entry = std::pair<int, int>;  // a key and the place that it started at

enum class Shape { shuffled, ascending, descending, nearlySorted, twoRuns };

std::vector<Entry> entries(Shape shape, int count, int keys, std::mt19937& random) {
  std::vector<Entry> result(static_cast<std::size_t>(count));
  for (Entry& entry : result) entry.first = std::uniform_int_distribution<>(0, keys - 1)(random);
  if (shape != Shape::shuffled) std::ranges::sort(result);
  if (shape == Shape::descending) std::ranges::reverse(result);
  if (shape == Shape::twoRuns) std::ranges::rotate(result, result.begin() + count / 3);
  if (shape == Shape::nearlySorted && count > 0) {
    std::swap(result.front(), result[static_cast<std::size_t>(count / 2)]);
  }
  int place = 0;
  for (Entry& entry : result) entry.second = place++;
  return result;
}

constexpr auto byKey = [](const Entry& a, const Entry& b) { return a.first < b.first; };

TEST(StableSortTest, sortsAndKeepsTies) {
  std::mt19937 random(1);
  for (const Shape shape : {Shape::shuffled, Shape::ascending, Shape::descending,
                            Shape::nearlySorted, Shape::twoRuns}) {
    for (const int count : {0, 1, 2, 3, 23, 24, 25, 63, 64, 100, 1000, 5000}) {
      for (const int keys : {1, 3, 1000000}) {
        const auto given = entries(shape, count, keys, random);
        auto expected = given;
        std::ranges::stable_sort(expected, byKey);
        auto sorted = given;
        stableSort(sorted, byKey);
        ASSERT_EQ(sorted, expected) << count << " of " << keys << " keys";
        // The block that orders ties before each other puts them in reverse.
        std::ranges::stable_sort(expected, [](const Entry& a, const Entry& b) {
          return a.first != b.first ? a.first > b.first : a.second > b.second;
        });
        sorted = given;
        stableSort(sorted, std::not_fn(byKey));
        ASSERT_EQ(sorted, expected) << count << " of " << keys << " keys, inverted";
      }
    }
  }
}

// The elements are such that a lost move leaves empty.
TEST(StableSortTest, keepsAllElementsUnderAnyAnswersAndExceptions) {
  std::mt19937 random(2);
  for (int round = 0; round < 400; ++round) {
    const int count = std::uniform_int_distribution<>(0, round % 10 == 0 ? 3000 : 200)(random);
    std::vector<std::unique_ptr<int>> all;
    for (int i = 0; i < count; ++i) all.push_back(std::make_unique<int>(i));
    int callsLeft = std::uniform_int_distribution<>(0, 12 * count + 1)(random);
    const auto anyAnswer = [&](const auto& a, const auto& b) {
      EXPECT_TRUE(a != nullptr && b != nullptr);
      if (round % 2 == 0 && callsLeft-- == 0) throw std::runtime_error("enough");
      return (random() & 1U) != 0;
    };
    try {
      stableSort(all, anyAnswer);
    } catch (const std::runtime_error&) {
      EXPECT_LT(callsLeft, 0);
    }
    for (const auto& element : all) ASSERT_NE(element, nullptr);
    std::ranges::sort(all, std::less<>(), [](const auto& box) { return *box; });
    for (int i = 0; i < count; ++i) ASSERT_EQ(*all[static_cast<std::size_t>(i)], i);
  }
}

TEST(StableSortTest, isLinearOnFewRuns) {
  std::mt19937 random(3);
  const auto calls = [&](Shape shape) {
    auto given = entries(shape, 10000, 2000000000, random);
    int count = 0;
    stableSort(given, [&](const Entry& a, const Entry& b) { return ++count, byKey(a, b); });
    return count;
  };
  EXPECT_EQ(calls(Shape::ascending), 9999);
  EXPECT_EQ(calls(Shape::descending), 9999);
  EXPECT_LE(calls(Shape::twoRuns), 20000);
  EXPECT_LE(calls(Shape::shuffled), 10000 * 14);
}

}  // namespace
