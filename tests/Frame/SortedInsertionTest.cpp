#include <Tolvanite/Frame/SortedInsertion.h>

#include <algorithm>
#include <csignal>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace tolvanite;

namespace {

using testing::AllOf, testing::Ge, testing::Le;
using Ints = std::vector<int>;

TEST(SortedInsertionTest, asksInTheOrderOfTheHalving) {
  using Asked = std::vector<std::pair<int, int>>;
  Asked asked;
  const auto less = [&](int a, int b) { return asked.emplace_back(a, b), a < b; };
  const auto sorted = [&](const Ints& array, int value) {
    asked.clear();
    const Int index = insertionIndexForSortedBy(array, less, value);
    return std::pair(index, asked);
  };
  const auto anywhere = [&](const Ints& array, int value) {
    asked.clear();
    const Int index = insertionIndexOf(array, value, less);
    return std::pair(index, asked);
  };
  const Ints array{1, 3, 3, 5};
  EXPECT_EQ(sorted(array, 3), std::pair(Int{1}, Asked{{3, 3}, {1, 3}, {3, 3}}));
  EXPECT_EQ(sorted(array, 6), std::pair(Int{4}, Asked{{3, 6}, {3, 6}, {5, 6}}));
  EXPECT_EQ(anywhere(array, 3), std::pair(Int{1}, Asked{{3, 3}, {3, 3}}));
  EXPECT_EQ(anywhere(array, 4), std::pair(Int{3}, Asked{{3, 4}, {3, 4}, {5, 4}, {4, 5}}));
  EXPECT_EQ(sorted({}, 3), std::pair(Int{0}, Asked()));
  EXPECT_EQ(anywhere({}, 3), std::pair(Int{0}, Asked()));
}

TEST(SortedInsertionTest, takesAnyIndexableArray) {
  const std::deque<std::string> names{"bee", "cat"};
  const NamedSortBlock<std::string> byName{"name", std::less<>()};
  EXPECT_EQ(insertionIndexInSortedArray(names, byName, "bug"), 1);
  Ints array{1, 3};
  EXPECT_EQ(insertionIndexOf(std::span<int>(array), 2, std::less<>()), 1);
}

RC_GTEST_PROP(SortedInsertionTest, findsThePlaceAmongTies, ()) {
  auto array = *rc::gen::container<Ints>(rc::gen::inRange(0, 12));
  const int value = *rc::gen::inRange(-1, 13);
  std::ranges::sort(array);
  const auto [lower, upper] = std::ranges::equal_range(array, value);
  RC_ASSERT(insertionIndexForSortedBy(array, std::less<>(), value) == lower - array.begin());

  const Int anywhere = insertionIndexOf(array, value, std::less<>());
  RC_ASSERT(anywhere >= lower - array.begin());
  RC_ASSERT(anywhere <= std::max(lower - array.begin(), upper - array.begin() - 1));
}

RC_GTEST_PROP(SortedInsertionTest, elementStaysWhereTheArrayStaysSorted, ()) {
  auto array = *rc::gen::nonEmpty(rc::gen::container<Ints>(rc::gen::inRange(0, 12)));
  const int element = *rc::gen::inRange(-1, 13);
  const Int index = *rc::gen::inRange<Int>(0, static_cast<Int>(array.size()));
  std::ranges::sort(array);
  auto changed = array;
  changed[static_cast<std::size_t>(index)] = element;
  const bool staysSorted = std::ranges::is_sorted(changed);
  RC_ASSERT(canElementStayAtIndex(array, element, index, std::less<>()) == staysSorted);
  // Ties stay under a block that orders them before each other, too.
  RC_ASSERT(canElementStayAtIndex(array, element, index, std::less_equal<>()) == staysSorted);
}

TEST(SortedInsertionTest, staysInBoundsWhateverTheBlockAnswers) {
  unsigned answers = 1;
  const auto any = [&](int, int) {
    return ((answers = answers * 1103515245 + 12345) & 65536) != 0;
  };
  const Ints array(37, 0);
  for (int i = 0; i < 1000; ++i) {
    ASSERT_THAT(insertionIndexForSortedBy(array, any, 0), AllOf(Ge(0), Le(37)));
    ASSERT_THAT(insertionIndexOf(array, 0, any), AllOf(Ge(0), Le(37)));
  }
}

TEST(SortedInsertionDeathTest, noPlaceOutsideOfTheArray) {
  EXPECT_EXIT(canElementStayAtIndex(Ints{1, 2}, 1, 2, std::less<>()),
              testing::KilledBySignal(SIGABRT), "Index 2 out of range, 2 elements");
}

}  // namespace
