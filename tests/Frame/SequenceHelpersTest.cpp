#include <csignal>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <list>
#include <memory>
#include <optional>
#include <ranges>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Frame/ArrayShapes.h>
#include <Tolvanite/Frame/CustomStringOrder.h>
#include <Tolvanite/Frame/SequenceGrouping.h>
#include <Tolvanite/Frame/SequenceSearch.h>
#include <Tolvanite/Frame/Shuffling.h>
#include <Tolvanite/Frame/Types.h>

#include <tests/Support/ScriptedRandom.h>

using namespace tolvanite;
using tolvanite::test::ScriptedRandom;

namespace {

using Ints = std::vector<int>;
using Strings = std::vector<std::string>;

const auto aborts = testing::KilledBySignal(SIGABRT);
constexpr auto isEven = [](int number) { return number % 2 == 0; };
constexpr auto initial = [](const std::string& word) { return word.at(0); };

TEST(ArrayShapesTest, cutAndRepeat) {
  EXPECT_EQ(chunk(Ints{1, 2, 3, 4, 5}, 2), (std::vector<Ints>{{1, 2}, {3, 4}, {5}}));
  EXPECT_EQ(chunk(Ints{}, 2), std::vector<Ints>{});
  EXPECT_EQ(arrayInterweaving(Ints{1, 2, 3}, 0), (Ints{1, 0, 2, 0, 3}));
  EXPECT_EQ(arrayInterweaving(std::list<int>{}, 0), Ints{});
  EXPECT_EQ(arrayThicknessed(Ints{1, 2}, 3), (Ints{1, 1, 1, 2, 2, 2}));
  EXPECT_EQ(multiply(Ints{1, 2}, 2), (Ints{1, 2, 1, 2}));
  EXPECT_EQ(multiply(Ints{}, std::numeric_limits<Int>::max()), Ints{}) << "at once";
  EXPECT_EQ(lastIndex(Ints{}), -1);
  EXPECT_EXIT(chunk(Ints{1}, 0), aborts, "Fatal error: chunk with size 0");
  EXPECT_EXIT(multiply(Ints{1}, -1), aborts, "multiply factor is negative: -1");
}

TEST(ArrayShapesTest, absentUnlessTheCountFits) {
  const Ints two{1, 2};
  EXPECT_TRUE(tvAtLeastCount(two, 2) == two && !tvAtLeastCount(two, 3));
  EXPECT_TRUE(tvCountEquals(two, 2) == two && !tvCountEquals(two, 1));
  EXPECT_TRUE(tvAtLeastOne(std::set<int>{4}) && !tvAtLeastOne(Set<int>{}));
  EXPECT_TRUE(safe(two, 1) == 2 && !safe(two, 2) && !safe(two, -1));

  std::vector<std::unique_ptr<int>> owned;
  appendOptional(owned, std::optional(std::make_unique<int>(1)));
  appendOptional(owned, std::nullopt);
  EXPECT_EQ(tvAtLeastOne(std::move(owned))->size(), 1U);
}

TEST(ArrayShapesTest, filterAndSortInPlace) {
  Ints numbers{4, 1, 2, 3, 8};
  const auto throwing = [](int number) {
    return number < 3 ? isEven(number) : throw std::runtime_error("no");
  };
  EXPECT_THROW(filtering(numbers, throwing), std::runtime_error);
  EXPECT_EQ(numbers, (Ints{4, 1, 2, 3, 8}));
  filtering(numbers, isEven);
  EXPECT_EQ(sorted_not(numbers, std::less<>()), (Ints{8, 4, 2}));
  sort_not(numbers, std::greater<>());
  EXPECT_EQ(numbers, (Ints{2, 4, 8}));
}

TEST(ArrayShapesTest, neighboursAndDifferences) {
  const Strings ring{"a", "b", "a", "c"};
  EXPECT_EQ(elementAfterWithRotation(ring, "a"), "b");
  EXPECT_EQ(elementAfterWithRotation(ring, "c"), "a");
  EXPECT_FALSE(elementAfterWithRotation(ring, "x").has_value());

  const auto added = insertions(Ints{1, 3}, Ints{0, 1, 2, 3, 4});
  EXPECT_EQ(added.indexes, (std::vector<Int>{0, 2, 4}));
  EXPECT_EQ(added.elements, (Ints{0, 2, 4}));
  // An element that `other` lacks holds up the walk: all that follows counts as inserted.
  EXPECT_EQ(insertions(Ints{9, 1}, Ints{1}).elements, Ints{1});
  EXPECT_TRUE(hasAscendingOrder(Ints{1, 1, 2}) && !hasAscendingOrder(Ints{1, 2, 1}));
}

TEST(SequenceGroupingTest, mapsAndGroups) {
  const Strings words{"bee", "ant", "ape", "bug"};
  const auto pairOf = [](const std::string& word) { return std::pair(word[0], word.substr(1)); };
  EXPECT_EQ(dictionaryBy(words, pairOf), (Dictionary<char, std::string>{{'a', "pe"}, {'b', "ug"}}));
  EXPECT_EQ(dictionaryWithIndex(words, initial),
            (Dictionary<char, std::string>{{'a', "ape"}, {'b', "bug"}}));
  EXPECT_EQ(oneEach(words, initial), (Dictionary<char, std::string>{{'a', "ant"}, {'b', "bee"}}));
  EXPECT_EQ(group(words, initial),
            (Dictionary<char, Strings>{{'a', {"ant", "ape"}}, {'b', {"bee", "bug"}}}));
  EXPECT_EQ(groupAsTuple(words, initial),
            (std::vector<std::pair<char, Strings>>{{'b', {"bee", "bug"}}, {'a', {"ant", "ape"}}}));
  const auto length = [](const std::string& word) {
    return word == "ant" ? Optional<std::size_t>() : Optional<std::size_t>(word.size());
  };
  EXPECT_EQ(createSet(words, length), Set<std::size_t>{3});
  EXPECT_EQ(duplicates(Ints{1, 2, 1, 3, 1, 2}), (Ints{1, 1, 2}));
  EXPECT_EQ(uniqArray(Ints{2, 1, 2, 3, 1}), (Ints{2, 1, 3}));
}

TEST(SequenceSearchTest, firstAndLast) {
  // One sequence that can be walked backward and one that is walked once, forward.
  const Ints numbers{3, 8, 5, 6, 7};
  auto passing = numbers | std::views::filter([](int number) { return number != 5; });
  EXPECT_EQ(firstMatch(numbers, isEven), 8);
  EXPECT_EQ(lastMatch(numbers, isEven), 6);
  EXPECT_EQ(lastMatch(passing, isEven), 6);
  EXPECT_EQ(firstPosition(numbers, isEven), 1);
  EXPECT_EQ(lastPosition(numbers, isEven), 3);
  EXPECT_EQ(lastPosition(passing, isEven), 2);
  const auto none = [](int number) { return number > 9; };
  EXPECT_FALSE(firstMatch(numbers, none) || lastPosition(numbers, none));
  EXPECT_FALSE(lastPosition(passing, none).has_value() || allMatch(numbers, isEven));
  EXPECT_TRUE(allMatch(Ints{}, none));
  EXPECT_EQ(filterAndNotFilter(numbers, isEven), std::pair(Ints{8, 6}, Ints{3, 5, 7}));
}

TEST(ShufflingTest, drawsInTheToldOrder) {
  ScriptedRandom random({3, 0, 1, 0, 1, 2, 2, 2, 0, 0, 2, 1, 1, 1, 2});
  Ints four{1, 2, 3, 4};
  shuffle(four);
  EXPECT_EQ(four, (Ints{4, 2, 1, 3}));
  EXPECT_EQ(randomizedArray(Ints{1, 2, 3}, 2), (Ints{2, 3, 1}));
  EXPECT_EQ(shuffled(std::list<int>{1}), Ints{1});
  EXPECT_EQ(randomizedArray(Ints{}, std::numeric_limits<Int>::max()), Ints{}) << "at once";
  EXPECT_EQ(randomizedArray(Ints{1, 2}, 0), (Ints{1, 2}));
  std::vector<std::uint32_t> bounds{4, 3, 2};
  bounds.insert(bounds.end(), 12, 3);
  EXPECT_EQ(random.bounds, bounds);
}

TEST(ShufflingTest, theSystemsOwnSourceReachesEveryOrder) {
  std::set<Ints> orders;
  for (int i = 0; i < 1000; ++i) orders.insert(shuffled(Ints{1, 2, 3}));
  EXPECT_EQ(orders.size(), 6U);
  std::vector<std::byte> bytes(64);
  systemRandom().fill(bytes);
  EXPECT_NE(bytes, std::vector<std::byte>(64));
  EXPECT_NE(std::pair(systemRandom().word(), systemRandom().word()),
            std::pair(systemRandom().word(), systemRandom().word()));
}

TEST(CustomStringOrderTest, ranksFirstThenTheRest) {
  const Strings given{"c", "a", "b", "a"};
  EXPECT_EQ(sortWithCustomOrder(given, CustomStringRanks{{"b", 0}}), (Strings{"b", "c", "a", "a"}));
  EXPECT_EQ(sortWithCustomOrder(given, Strings{"a", "c"}), (Strings{"a", "a", "c", "b"}));
  // No rank is rank 9999, and higher ranks stand behind it.
  EXPECT_EQ(sortWithCustomOrder(given, CustomStringRanks{{"c", 10000}, {"b", 9999}}),
            (Strings{"a", "b", "a", "c"}));
  EXPECT_EQ(sortWithCustomOrderAndAlphabetical(given, {{"c", 10000}}),
            (Strings{"c", "a", "a", "b"}));
  EXPECT_EQ(sortWithCustomOrder_prepareCustomOrderDictionary({"x", "y", "x"}),
            (CustomStringRanks{{"x", 2}, {"y", 1}}));
}

}  // namespace
