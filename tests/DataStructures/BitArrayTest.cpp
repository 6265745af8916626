#include <Tolvanite/DataStructures/BitArray.h>

#include <algorithm>
#include <bitset>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <ranges>
#include <sstream>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Frame/TextForm.h>

namespace {

using namespace tolvanite;
using ::testing::ElementsAre;

static_assert(std::random_access_iterator<BitArray::Iterator>);

// What must hold at any time, with the bits being those of `expected`.
void checkAgainst(const std::vector<bool>& expected, const BitArray& array) {
  RC_ASSERT(array.asVector() == expected);
  RC_ASSERT(std::vector<bool>(array.begin(), array.end()) == expected);
  RC_ASSERT(array.cardinality() == std::ranges::count(expected, true));
  RC_ASSERT(array.bits().size() == (expected.size() + 63) / 64);
  const BitArray fresh(expected);
  RC_ASSERT(array == fresh && array.hashValue() == fresh.hashValue());
}

RC_GTEST_PROP(BitArrayTest, changesAsAnArrayOfBoolsDoes, ()) {
  auto expected = *rc::gen::resize(200, rc::gen::arbitrary<std::vector<bool>>());
  BitArray array(expected);
  for (int step = 0; step < 30; ++step) {
    const auto count = static_cast<Int>(expected.size());
    const Int place = *rc::gen::inRange<Int>(0, count + 1);
    const bool bit = *rc::gen::arbitrary<bool>();
    switch (*rc::gen::inRange(0, place < count ? 5 : 3)) {
      case 0:
        array.append(bit);
        expected.push_back(bit);
        break;
      case 1:
        array.insert(bit, place);
        expected.insert(expected.begin() + place, bit);
        break;
      case 2:
        RC_ASSERT(array.removeLast().has_value() == !expected.empty());
        if (!expected.empty()) expected.pop_back();
        break;
      case 3:
        RC_ASSERT(array.removeAtIndex(place) == expected[static_cast<std::size_t>(place)]);
        expected.erase(expected.begin() + place);
        break;
      default:
        array[place] = bit;
        expected[static_cast<std::size_t>(place)] = bit;
    }
    checkAgainst(expected, array);
  }
}

// Most often the arrays differ late, and one may be the start of the other.
RC_GTEST_PROP(BitArrayTest, ordersAsArraysOfBoolsDo, ()) {
  auto left = *rc::gen::resize(200, rc::gen::arbitrary<std::vector<bool>>());
  auto right = left;
  left.resize(*rc::gen::inRange<std::size_t>(0, left.size() + 1));
  const auto ends = *rc::gen::arbitrary<std::pair<std::vector<bool>, std::vector<bool>>>();
  left.insert(left.end(), ends.first.begin(), ends.first.end());
  right.insert(right.end(), ends.second.begin(), ends.second.end());
  RC_ASSERT((BitArray(left) <=> BitArray(right)) == (left <=> right));
}

TEST(BitArrayTest, isMadeOfManyKinds) {
  const BitArray ones(65, true);
  EXPECT_EQ(ones.cardinality(), 65);
  EXPECT_THAT(ones.bits(), ElementsAre(~std::uint64_t{0}, 1U));
  EXPECT_EQ(BitArray(64, false).bits().size(), 1U);
  EXPECT_EQ(BitArray(0, true), BitArray());

  const BitArray listed{true, false, true};
  EXPECT_EQ(listed, BitArray(std::bitset<3>(5)));
  std::istringstream digits("1 0 1");
  EXPECT_EQ(listed, BitArray(std::views::istream<bool>(digits))) << "read once only";
  EXPECT_EQ(listed, BitArray::fromIntRepresentation({-7, 0, 1}));
  EXPECT_EQ(listed, BitArray::fromIntRepresentation(std::vector<std::uint8_t>{2, 0, 1}));
  EXPECT_EQ(listed.asBitset<3>(), std::bitset<3>(5));
  std::ostringstream out;
  out << listed << BitArray();
  EXPECT_EQ(out.str(), "[true, false, true][]");
  EXPECT_EQ(textForm(listed), textForm(listed.asVector()));
}

TEST(BitArrayTest, endsAndCopies) {
  BitArray array;
  EXPECT_FALSE(array.first().has_value() || array.last().has_value() ||
               array.removeLast().has_value());
  array = {false, true};
  EXPECT_EQ(array.first(), Optional<bool>(false));
  EXPECT_EQ(array.last(), Optional<bool>(true));
  array[0] = array[1];
  EXPECT_EQ(array.cardinality(), 2);
  EXPECT_NE(array, (BitArray{true, true, false}));
  array.append(false);
  swap(array[0], array[2]);
  EXPECT_EQ(array, (BitArray{false, true, true}));
  array.removeAtIndex(0);

  BitArray moved = std::move(array);
  EXPECT_EQ(moved, BitArray(2, true));
  EXPECT_EQ(array.count() + array.cardinality(), 0);  // NOLINT: empty, and good for new bits
  array.append(true);
  EXPECT_EQ(array, BitArray{true});
  moved.removeAll(true);
  EXPECT_EQ(moved, BitArray());
  EXPECT_EQ((Set<BitArray>{BitArray{true}, BitArray{true}, BitArray{true, false}}).size(), 2U);
}

TEST(BitArrayDeathTest, wrongIndexes) {
  BitArray array(65, true);
  EXPECT_DEATH(array[65] = true, "Fatal error: Index out of range \\(65\\): file");
  EXPECT_DEATH(static_cast<void>(std::as_const(array)[-1]), "Index out of range \\(-1\\): file");
  EXPECT_DEATH(array.insert(true, 66), "Index out of range \\(66\\): file");
  EXPECT_DEATH(array.removeAtIndex(65), "Index out of range \\(65\\): file");
  EXPECT_DEATH(BitArray(-1, true), "Fatal error: Can't construct BitArray with count < 0: file");
  EXPECT_DEATH(static_cast<void>(array.asBitset<64>()), "A bitset of 64 bits cannot hold the 65");
}

}  // namespace
