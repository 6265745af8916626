// The handle buffer against a vector.
#include <Tolvanite/DataStructures/detail/HandleBuffer.h>

#include <cstdlib>
#include <deque>
#include <limits>

#include <gtest/gtest.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::detail {
namespace {

using testing::draw;
using testing::Indexes;

struct HandleBufferTest : ::testing::Test {
  BoxHeader* newHandle() { return &boxes.emplace_back(1u); }
  Indexes ascending(Int below, bool areDistinct) {
    Indexes indexes;
    for (Int i = draw(random, 20); i > 0 && below > 0; --i) indexes.push_back(draw(random, below));
    std::ranges::sort(indexes);
    if (areDistinct) indexes.erase(std::ranges::unique(indexes).begin(), indexes.end());
    return indexes;
  }
  /// Fills the `width` places from `at` on, in both.
  void fill(Int at, Int width = 1) {
    for (Int i = at; i < at + width; ++i) {
      buffer.data()[i] = newHandle();
      expected.insert(expected.begin() + i, buffer.data()[i]);
    }
  }
  bool isSame(const HandleBuffer& other) const {
    return std::equal(expected.begin(), expected.end(), other.data(), other.data() + other.count());
  }
  void step(Int which, bool isGrowing, Int index);

  testing::Random random{1};
  std::deque<BoxHeader> boxes;
  HandleBuffer buffer;
  std::vector<BoxHeader*> expected;
};

void HandleBufferTest::step(Int which, bool isGrowing, Int index) {
  const Int n = buffer.count();
  const auto begin = expected.begin();
  if (which < 3 && isGrowing) {
    const Int width = draw(random, draw(random, 9) == 0 ? 90 : 3);
    buffer.openGap(index, width);
    fill(index, width);
  } else if (which < 5) {
    const Int width = std::min(n - index, draw(random, isGrowing ? 2 : 12));
    buffer.closeGap(index, width);
    expected.erase(begin + index, begin + index + width);
  } else if (which == 5 && n > 0) {
    const Int from = draw(random, n);
    const Int to = draw(random, n);
    buffer.move(from, to);
    if (from < to) std::rotate(begin + from, begin + from + 1, begin + to + 1);
    if (to < from) std::rotate(begin + to, begin + from, begin + from + 1);
  } else if (which == 6) {
    const auto indexes = ascending(n + 1, false);
    buffer.openGaps(indexes);
    for (Int k = 0; const Int at : indexes) fill(at + k++);
  } else {
    const auto indexes = ascending(n, true);
    buffer.closeGaps(indexes);
    for (const Int at : indexes | std::views::reverse) expected.erase(begin + at);
    buffer.append(newHandle());
    expected.push_back(&boxes.back());
    if (draw(random, 50) == 0) buffer.reserve(n + draw(random, 200));
  }
}

TEST_F(HandleBufferTest, doesWhatAVectorDoes) {
  for (int i = 0; i < 20000; ++i) {
    const Int n = buffer.count();
    // It grows and shrinks in turn, and for a time mostly at one of its ends.
    const Int ats[] = {draw(random, n + 1), draw(random, 3), n - draw(random, 3)};
    step(draw(random, 8), i / 1500 % 2 == 0, std::clamp<Int>(ats[i / 500 % 3], 0, n));
    ASSERT_TRUE(isSame(buffer)) << "step " << i;
  }
  const HandleBuffer copy(buffer);
  buffer.clear();
  EXPECT_TRUE(isSame(copy));
}

TEST_F(HandleBufferTest, findsNearAndNoFurther) {
  for (const Int count : {0, 1, 5, 16, 17, 40, 700}) {
    buffer.clear();
    for (Int i = 0; i < count; ++i) buffer.append(newHandle());
    EXPECT_EQ(buffer.findNear(newHandle(), count / 2, 1000), -1);
    for (int i = 0; i < 300 && count > 0; ++i) {
      const Int at = draw(random, count);
      const Int guess = draw(random, count + 40) - 20;
      const Int reach = draw(random, i % 2 == 0 ? 20 : 400);
      const Int distance = std::abs(at - std::clamp<Int>(guess, 0, count - 1));
      ASSERT_EQ(buffer.findNear(buffer.data()[at], guess, reach), distance <= reach ? at : -1);
      ASSERT_EQ(buffer.findNear(buffer.data()[at], guess, std::numeric_limits<Int>::max() / 2), at);
    }
  }
}

}  // namespace
}  // namespace tolvanite::detail
