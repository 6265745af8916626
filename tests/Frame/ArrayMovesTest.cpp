#include <Tolvanite/Frame/ArrayMoves.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Frame/ArrayRemoval.h>

using namespace tolvanite;

namespace {

using Ints = std::vector<int>;
using Indexes = std::vector<Int>;
using Helper = TvArrayMoveHelper;

const auto aborts = testing::KilledBySignal(SIGABRT);

// The removal told step by step: one shift for each element.
template <typename T>
std::vector<T> removeOneByOne(std::vector<T>& array, Indexes indexes) {
  std::ranges::sort(indexes);
  std::vector<T> removed;
  for (auto index = indexes.rbegin(); index != indexes.rend(); ++index) {
    removed.push_back(array.at(static_cast<std::size_t>(*index)));
    array.erase(array.begin() + *index);
  }
  return removed;
}

std::vector<std::string> moveOneByOne(std::vector<std::string>& array, const Indexes& from,
                                      Int to) {
  const auto removed = removeOneByOne(array, from);
  for (auto element = removed.rbegin(); element != removed.rend(); ++element) {
    array.insert(array.begin() + to++, *element);
  }
  return removed;
}

std::vector<std::string> letters(Int count) {
  std::vector<std::string> result;
  result.reserve(static_cast<std::size_t>(count));
  for (Int i = 0; i < count; ++i) result.push_back("element number " + std::to_string(i));
  return result;
}

// Indexes that can be removed from highest to lowest, now and then repeated ones.
Indexes removableIndexes(Int count) {
  const auto wanted =
      *rc::gen::container<Indexes>(rc::gen::inRange<Int>(0, std::max<Int>(count, 1)));
  const bool repeated = *rc::gen::arbitrary<bool>();
  Indexes result;
  for (const Int index : wanted) {
    // Of `behind` elements from the index on, each index at or behind it takes one.
    if (!repeated && std::ranges::count(result, index) > 0) continue;
    result.push_back(index);
    Indexes sorted = result;
    std::ranges::sort(sorted);
    for (std::size_t i = 0; i < sorted.size(); ++i) {
      if (count - sorted[i] < static_cast<Int>(sorted.size() - i)) {
        result.pop_back();
        break;
      }
    }
  }
  return result;
}

RC_GTEST_PROP(ArrayRemovalTest, byIndexesEqualsOneByOne, ()) {
  const Int count = *rc::gen::inRange<Int>(0, 30);
  const Indexes indexes = removableIndexes(count);
  auto array = letters(count);
  auto model = array;
  RC_ASSERT(removeAtIndexes(array, indexes) == removeOneByOne(model, indexes));
  RC_ASSERT(array == model);
}

RC_GTEST_PROP(ArrayMovesTest, ofManyEqualsOneByOne, ()) {
  const Int count = *rc::gen::inRange<Int>(0, 30);
  const Indexes from = removableIndexes(count);
  const Int rest = count - static_cast<Int>(from.size());
  const Int to = *rc::gen::inRange<Int>(0, rest + 1);
  auto array = letters(count);
  auto model = array;
  RC_ASSERT(moveFromIndexesToIndex(array, from, to) == moveOneByOne(model, from, to));
  RC_ASSERT(array == model);
}

RC_GTEST_PROP(ArrayMovesTest, intoAGapPutsTheMovedBeforeItsElement, ()) {
  const Int count = *rc::gen::inRange<Int>(0, 30);
  const auto fromSet = *rc::gen::container<std::set<Int>>(rc::gen::inRange<Int>(0, count + 1));
  Indexes from(fromSet.begin(), fromSet.lower_bound(count));
  const Int gap = *rc::gen::inRange<Int>(0, count + 1);
  auto array = letters(count);
  std::vector<std::string> expected;
  for (Int i = 0; i <= count; ++i) {
    if (i == gap) {
      for (const Int moved : from) expected.push_back(array[static_cast<std::size_t>(moved)]);
    }
    if (i < count && !fromSet.contains(i)) expected.push_back(array[static_cast<std::size_t>(i)]);
  }
  moveFromIndexesToIndexAsOfNow(array, from, gap);
  RC_ASSERT(array == expected);

  // The matching gap leads back to the same target.
  const Int to = Helper::toIndex_From_AsOfNowToIndex(gap, from);
  RC_ASSERT(Helper::toIndex_From_AsOfNowToIndex(Helper::asOfNowToIndex_From_ToIndex(to, from),
                                                from) == to);
}

TEST(ArrayMovesTest, convertsTargets) {
  EXPECT_EQ(Helper::toIndex_From_AsOfNowToIndex(4, 2), 3);
  EXPECT_EQ(Helper::toIndex_From_AsOfNowToIndex(2, 2), 2);
  EXPECT_EQ(Helper::toIndex_From_AsOfNowToIndex(4, Indexes{3, 1, 4}), 2);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(1, 2), 1);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(2, 2), 3);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(2, Indexes{}), 2);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(2, Indexes{4, 2}), 2);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(2, Indexes{3, 1}), 3);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(2, Indexes{2, 3, 1}), 5);
}

TEST(ArrayMovesTest, ofOneElement) {
  for (const auto& [from, to, expected] :
       std::vector<std::tuple<Int, Int, Ints>>{{0, 3, {1, 2, 3, 0}},
                                               {3, 0, {3, 0, 1, 2}},
                                               {2, 1, {0, 2, 1, 3}},
                                               {2, 2, {0, 1, 2, 3}}}) {
    Ints array{0, 1, 2, 3};
    EXPECT_EQ(moveFromIndexToIndex(array, from, to), static_cast<int>(from));
    EXPECT_EQ(array, expected);
  }
  for (const auto& [from, gap, expected] :
       std::vector<std::tuple<Int, Int, Ints>>{{2, 2, {0, 1, 2, 3}},
                                               {2, 3, {0, 1, 2, 3}},
                                               {2, 4, {0, 1, 3, 2}},
                                               {2, 0, {2, 0, 1, 3}}}) {
    Ints array{0, 1, 2, 3};
    EXPECT_EQ(moveFromIndexToIndexAsOfNow(array, from, gap), 2);
    EXPECT_EQ(array, expected);
  }
  std::vector<std::unique_ptr<int>> owned(3);
  owned[0] = std::make_unique<int>(7);
  EXPECT_EQ(*moveFromIndexToIndex(owned, 0, 2), 7);
}

TEST(ArrayMovesTest, ofManyGivesHighestSourceFirst) {
  std::vector<char> array{'a', 'b', 'c', 'd', 'e'};
  EXPECT_EQ(moveFromIndexesToIndex(array, {1, 3}, 2), (std::vector<char>{'d', 'b'}));
  EXPECT_EQ(array, (std::vector<char>{'a', 'c', 'b', 'd', 'e'}));
  // Nothing is moved, so the target is not looked at.
  EXPECT_EQ(moveFromIndexesToIndex(array, {}, 99), std::vector<char>{});
}

TEST(ArrayMovesDeathTest, indexesOutOfRangeAreFatal) {
  Ints array{0, 1, 2};
  EXPECT_EXIT(moveFromIndexToIndex(array, 3, 0), aborts, "Index 3 out of range, 3 elements");
  EXPECT_EXIT(moveFromIndexToIndex(array, 0, 3), aborts, "Index 3 out of range, 3 elements");
  EXPECT_EXIT(moveFromIndexToIndexAsOfNow(array, 0, 4), aborts, "Index 4 out of range");
  EXPECT_EXIT(moveFromIndexesToIndex(array, {0, 1}, 2), aborts, "Index 2 out of range, 1 elements");
  EXPECT_EXIT(moveFromIndexesToIndex(array, {-1}, 0), aborts, "Index -1 out of range, 3 elements");
  // The second removal at the last place finds nothing there.
  EXPECT_EXIT(removeAtIndexes(array, {2, 2}), aborts, "Index 2 out of range, 2 elements");
  EXPECT_EXIT(removeAtIndexes(array, {1, 1, 1}), aborts, "Index 1 out of range, 1 elements");
}

TEST(ArrayRemovalTest, byValue) {
  Ints array{1, 2, 1, 3};
  remove(array, array[0]);
  EXPECT_EQ(array, (Ints{2, 3}));
  EXPECT_EQ(arrayRemoving(array, 2), (Ints{3}));
  EXPECT_EQ(tvRemoveObject_firstMatch(array, 9), Optional<Int>());
  EXPECT_EQ(tvRemoveObject_firstMatch(array, array[1]), Optional<Int>(1));
  EXPECT_EQ(array, (Ints{2}));
  std::vector<std::string> names{"a", "b"};
  remove(names, "a");
  EXPECT_EQ(names, (std::vector<std::string>{"b"}));
}

// Equal, but without a hash.
struct Plain {
  int value;
  bool operator==(const Plain&) const = default;
};

TEST(ArrayRemovalTest, bySeveralValuesTakesEachIndexOnce) {
  const auto check = []<typename T>(std::type_identity<T>) {
    using Values = std::vector<T>;
    Values array{{1}, {2}, {1}, {3}, {2}, {1}};
    EXPECT_EQ(tvRemoveObjects_firstMatchesOnly(array, Values{{1}, {2}, {1}, {9}}), 2);
    EXPECT_EQ(array, (Values{{1}, {3}, {2}, {1}}));
    EXPECT_EQ(tvRemoveObjects(array, Values{{1}, {9}, {1}}), 2);
    EXPECT_EQ(array, (Values{{3}, {2}}));
    EXPECT_EQ(tvRemoveObjects(array, array), 2);
    EXPECT_EQ(array, Values{});
  };
  check(std::type_identity<int>());
  check(std::type_identity<Plain>());
}

}  // namespace
