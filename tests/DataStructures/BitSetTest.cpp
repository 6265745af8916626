#include <Tolvanite/DataStructures/BitSet.h>

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <limits>
#include <ranges>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Frame/TextForm.h>

namespace {

using namespace tolvanite;
using ::testing::ElementsAre;

static_assert(std::ranges::forward_range<SetBitIndexes>);
static_assert(detail::wordsFor(std::numeric_limits<Int>::max()) == std::size_t{1} << 57,
              "no overflow");

std::vector<bool> bitsOfSize(Int size) {
  return *rc::gen::container<std::vector<bool>>(static_cast<std::size_t>(size),
                                                rc::gen::arbitrary<bool>());
}

RC_GTEST_PROP(BitSetTest, algebraOfBits, ()) {
  const Int size = *rc::gen::inRange<Int>(1, 1300);
  const auto left = bitsOfSize(size);
  const auto right = bitsOfSize(size);
  const BitSet a(left);
  const BitSet b(right);
  const auto combined = [&](auto operation) {
    std::vector<bool> result(left.size());
    std::transform(left.begin(), left.end(), right.begin(), result.begin(), operation);
    return BitSet(result);
  };
  RC_ASSERT((a & b) == combined([](bool x, bool y) { return x && y; }));
  RC_ASSERT((a | b) == combined([](bool x, bool y) { return x || y; }));
  RC_ASSERT((a ^ b) == combined([](bool x, bool y) { return x != y; }));
  RC_ASSERT((a & ~a).all0() && (a | ~a).all1() && ~~a == a);
  RC_ASSERT(a.cardinality() == std::ranges::count(left, true));
  RC_ASSERT(a.asVector() == left);
  std::vector<Int> indexes;
  for (Int i = 0; i < size; ++i) {
    if (a[i]) indexes.push_back(i);
  }
  RC_ASSERT(std::ranges::equal(a.indexesOfSetBits(), indexes));

  BitSet read(size);
  RC_ASSERT(read.setToBitCoded(a.bitCode()) && read == a);
  RC_ASSERT(read.setToHexCoded(b.hexCode()) && read == b);
  RC_ASSERT(read.hashValue() == b.hashValue());

  Int next = 0;
  for (const auto& [bit, first, last] : a.continuousRanges()) {
    RC_ASSERT(first == next && last >= first && (first == 0 || a[first - 1] != bit));
    for (Int i = first; i <= last; ++i) RC_ASSERT(a[i] == bit);
    next = last + 1;
  }
  RC_ASSERT(next == size);
}

TEST(BitSetTest, singleBits) {
  BitSet set(65);
  EXPECT_EQ(set.words().size(), 2U);
  EXPECT_TRUE(set.all0() && !set.any1());
  set.set(64);
  set[3] = true;
  EXPECT_TRUE(set.flip(7));
  EXPECT_FALSE(set.flip(3));
  set[8] = set[7];
  set.clear(7);
  EXPECT_THAT(std::vector<Int>(set.indexesOfSetBits().begin(), set.indexesOfSetBits().end()),
              ElementsAre(8, 64));
  set.setAll();
  EXPECT_THAT(set.words(), ElementsAre(~std::uint64_t{0}, 1U));
  EXPECT_TRUE(set.all1() && set.any1());
  EXPECT_EQ(set.cardinality(), 65);
  set.clear(0);
  EXPECT_FALSE(set.all1());
  set.clearAll();
  EXPECT_EQ(set, BitSet(65));
  EXPECT_EQ((~BitSet(3)).cardinality(), 3);
  EXPECT_EQ((~BitSet(3)).asBitset<3>(), std::bitset<3>(7));
  EXPECT_NE(BitSet(3), BitSet(4));
  EXPECT_EQ(BitSet::allZeros(), BitSet(64));
  const BitSet moved = std::move(set);
  EXPECT_TRUE(set.size() == 0 && set.cardinality() == 0) << "a moved set is empty";  // NOLINT
}

TEST(BitSetTest, textsAndHashes) {
  BitSet set(66);
  EXPECT_EQ(set.hashValue(), 1234);
  set.set(1);
  set.set(65);
  EXPECT_EQ(set.hashValue(), 1234 ^ 2 ^ (2 * 2));
  const std::string low = "01" + std::string(62, '0');
  EXPECT_EQ(textForm(set), low + " " + low);
  EXPECT_EQ(set.bitCode(), low + "/" + low);
  EXPECT_EQ(set.hexDescription(), "BitSet(66 bits: 0x2/0x2)");
  EXPECT_EQ(bitsToString(std::uint64_t{1} << 63 | 1), "1" + std::string(62, '0') + "1");
  // The upper half of the hash is folded into the lower one.
  BitSet high(64);
  high.set(40);
  EXPECT_EQ(high.hashValue(), (Int{1} << 40) ^ (1 << 8) ^ 1234);

  std::ostringstream out;
  for (const auto& run : BitSet(BitArray{false, true, true, false}).continuousRanges()) out << run;
  EXPECT_EQ(out.str(), "(false, 0...0)(true, 1...2)(false, 3...3)");
  EXPECT_EQ((Set<BitSet>{set, set, high}).size(), 2U);
}

TEST(BitSetTest, readsCodesUpToTheFirstFault) {
  // The code for a set of 66 bits with the bits 0 and 65 set; whether it reads; the words then.
  const std::string bits = std::string(64, '1');
  const std::vector<std::tuple<std::string, bool, std::vector<std::uint64_t>>> cases = {
      {"0xFfffffffffffffff/0x1", true, {~std::uint64_t{0}, 1}},
      {"0x5/0xf", true, {5, 3}},
      {"0x5", false, {5, 2}},
      {"0x5/", false, {5, 2}},
      {"0x5/12", false, {5, 2}},
      {"0x5/0x", false, {5, 2}},
      {"0x5/0x-1", false, {5, 2}},
      {"0x5/0x1/0x1", false, {5, 1}},
      {"0x5/0x1/", false, {5, 1}},
      {"0x5/0x1 ", false, {5, 2}},
      {"0x00000000000000005/0x1", false, {1, 2}},
      {"", false, {1, 2}},
      {bits + "/" + bits, true, {~std::uint64_t{0}, 3}},
      {bits + "/" + bits.substr(1), false, {~std::uint64_t{0}, 2}},
      {bits.substr(1) + "2/" + bits, false, {1, 2}},
  };
  for (const auto& [text, reads, words] : cases) {
    SCOPED_TRACE(text);
    BitSet set(66);
    set.set(0);
    set.set(65);
    EXPECT_EQ(text.starts_with("11") ? set.setToBitCoded(text) : set.setToHexCoded(text), reads);
    EXPECT_EQ(set.words(), words);
  }
}

TEST(BitSetDeathTest, wrongIndexesAndSizes) {
  BitSet set(3);
  EXPECT_DEATH(set.set(3), "Fatal error: Index 3 out of range, 3 elements: file");
  EXPECT_DEATH(set[-1] = true, "Fatal error: Index -1 out of range, 3 elements: file");
  EXPECT_DEATH(set ^= BitSet(5), "Fatal error: BitSets of different sizes: 3 and 5: file");
  EXPECT_DEATH(BitSet(0), "Fatal error: The size of a BitSet must be positive: 0: file");
  EXPECT_DEATH(BitSet(std::vector<bool>()), "must be positive: 0: file");
}

}  // namespace
