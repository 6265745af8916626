#include <Tolvanite/Frame/ArrayMoves.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <limits>
#include <memory>
#include <ranges>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Frame/ArrayRemoval.h>

using namespace tolvanite;

namespace {

using Ints = std::vector<int>;
using Words = std::vector<std::string>;
using Indexes = std::vector<Int>;
using Helper = TvArrayMoveHelper;

const auto aborts = testing::KilledBySignal(SIGABRT);

// The removal and the move told step by step: one shift for each element.
Words removeOneByOne(Words& array, Indexes indexes) {
  std::ranges::sort(indexes, std::greater<>());
  Words removed;
  for (const Int index : indexes) {
    removed.push_back(array.at(static_cast<std::size_t>(index)));
    array.erase(array.begin() + index);
  }
  return removed;
}

Words moveOneByOne(Words& array, const Indexes& from, Int to) {
  const auto removed = removeOneByOne(array, from);
  for (const auto& element : std::views::reverse(removed)) {
    array.insert(array.begin() + to++, element);
  }
  return removed;
}

Words words(Int count) {
  Words result;
  result.reserve(static_cast<std::size_t>(count));
  for (Int i = 0; i < count; ++i) result.push_back("element number " + std::to_string(i));
  return result;
}

// Indexes in any order, also repeated ones, that can be removed from highest to lowest.
Indexes removableIndexes(Int count) {
  auto wanted = *rc::gen::container<Indexes>(rc::gen::inRange<Int>(0, count + 1));
  std::ranges::sort(wanted, std::greater<>());
  Indexes result;
  for (const Int index : wanted) {
    if (index < count - static_cast<Int>(result.size())) result.push_back(index);
  }
  std::ranges::rotate(result, result.begin() + *rc::gen::inRange<Int>(0, std::ssize(result) + 1));
  return result;
}

RC_GTEST_PROP(ArrayMovesTest, removesAndMovesAsOneByOne, ()) {
  const Int count = *rc::gen::inRange<Int>(0, 30);
  const Indexes from = removableIndexes(count);
  auto array = words(count);
  auto model = array;
  RC_ASSERT(removeAtIndexes(array, from) == removeOneByOne(model, from));
  RC_ASSERT(array == model);

  const Int to = *rc::gen::inRange<Int>(0, std::ssize(array) + 1);
  array = model = words(count);
  RC_ASSERT(moveFromIndexesToIndex(array, from, to) == moveOneByOne(model, from, to));
  RC_ASSERT(array == model);
}

RC_GTEST_PROP(ArrayMovesTest, intoAGapPutsTheMovedBeforeItsElement, ()) {
  const Int count = *rc::gen::inRange<Int>(0, 30);
  const auto fromSet = *rc::gen::container<std::set<Int>>(rc::gen::inRange<Int>(0, count + 1));
  Indexes from(fromSet.begin(), fromSet.lower_bound(count));
  const Int gap = *rc::gen::inRange<Int>(0, count + 1);
  auto array = words(count);
  Words expected;
  for (Int i = 0; i <= count; ++i) {
    for (const Int moved : i == gap ? from : Indexes())
      expected.push_back(array.at(static_cast<std::size_t>(moved)));
    if (i < count && !fromSet.contains(i))
      expected.push_back(array.at(static_cast<std::size_t>(i)));
  }
  moveFromIndexesToIndexAsOfNow(array, from, gap);
  RC_ASSERT(array == expected);

  // The matching gap leads back to the same target.
  const Int to = Helper::toIndex_From_AsOfNowToIndex(gap, from);
  RC_ASSERT(Helper::toIndex_From_AsOfNowToIndex(Helper::asOfNowToIndex_From_ToIndex(to, from),
                                                from) == to);
}

TEST(ArrayMovesTest, convertsTargets) {
  EXPECT_EQ(Helper::toIndex_From_AsOfNowToIndex(4, Indexes{3, 1, 4}), 2);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(1, 2), 1);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(2, 2), 3);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(2, Indexes{4, 2}), 2);
  EXPECT_EQ(Helper::asOfNowToIndex_From_ToIndex(2, Indexes{2, 3, 1}), 5);
}

TEST(ArrayMovesTest, ofOneElement) {
  const auto direct = [](Int from, Int to) {
    Ints array{0, 1, 2, 3};
    EXPECT_EQ(moveFromIndexToIndex(array, from, to), static_cast<int>(from));
    return array;
  };
  const auto asOfNow = [](Int from, Int gap) {
    Ints array{0, 1, 2, 3};
    EXPECT_EQ(moveFromIndexToIndexAsOfNow(array, from, gap), static_cast<int>(from));
    return array;
  };
  EXPECT_EQ(direct(0, 3), (Ints{1, 2, 3, 0}));
  EXPECT_EQ(direct(2, 1), (Ints{0, 2, 1, 3}));
  EXPECT_EQ(asOfNow(2, 2), (Ints{0, 1, 2, 3}));
  EXPECT_EQ(asOfNow(2, 3), (Ints{0, 1, 2, 3}));
  EXPECT_EQ(asOfNow(2, 4), (Ints{0, 1, 3, 2}));
  EXPECT_EQ(asOfNow(2, 0), (Ints{2, 0, 1, 3}));

  std::vector<std::unique_ptr<int>> owned(3);
  owned[0] = std::make_unique<int>(7);
  EXPECT_EQ(*moveFromIndexToIndex(owned, 0, 2), 7);
  // Nothing is moved, so the target is not looked at.
  Ints array{1, 2};
  EXPECT_EQ(moveFromIndexesToIndex(array, {}, 99), Ints{});
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
  constexpr Int largest = std::numeric_limits<Int>::max();
  EXPECT_EXIT(Helper::asOfNowToIndex_From_ToIndex(largest - 1, Indexes{0, 1}), aborts,
              "Arithmetic overflow");
}

TEST(ArrayRemovalTest, byValue) {
  Ints array{1, 2, 1, 3};
  remove(array, array[0]);
  EXPECT_EQ(array, (Ints{2, 3}));
  EXPECT_EQ(arrayRemoving(array, 2), (Ints{3}));
  EXPECT_EQ(tvRemoveObject_firstMatch(array, 9), Optional<Int>());
  EXPECT_EQ(tvRemoveObject_firstMatch(array, array[1]), Optional<Int>(1));
  EXPECT_EQ(array, (Ints{2}));
  Words names{"a", "b"};
  remove(names, "a");
  EXPECT_EQ(names, Words{"b"});
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
