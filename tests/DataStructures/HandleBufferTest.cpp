// The handle buffer against a vector.
#include <Tolvanite/DataStructures/detail/HandleBuffer.h>

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::detail {
namespace {

using testing::draw;
using testing::Random;
using Handles = std::vector<BoxHeader*>;

class HandleBufferTest : public ::testing::Test {
 protected:
  BoxHeader* newHandle() { return &boxes_.emplace_back(1u); }
  std::vector<Int> ascending(Int below, bool areDistinct) {
    std::vector<Int> indexes;
    for (Int i = draw(random, 20); i > 0 && below > 0; --i) indexes.push_back(draw(random, below));
    std::ranges::sort(indexes);
    if (areDistinct) indexes.erase(std::ranges::unique(indexes).begin(), indexes.end());
    return indexes;
  }
  /// Fills the `width` places from `at` on, in both.
  void fill(HandleBuffer& buffer, Handles& expected, Int at, Int width) {
    for (Int i = at; i < at + width; ++i) {
      buffer.data()[i] = newHandle();
      expected.insert(expected.begin() + i, buffer.data()[i]);
    }
  }

  Random random{1};
  std::deque<BoxHeader> boxes_;
};

TEST_F(HandleBufferTest, doesWhatAVectorDoes) {
  HandleBuffer buffer;
  Handles expected;
  for (int i = 0; i < 20000; ++i) {
    const Int n = buffer.count();
    // It grows and shrinks in turn, and for a time mostly at one of its ends.
    const bool isGrowing = i / 1500 % 2 == 0;
    const Int side = i / 500 % 3;
    const Int at = side == 0   ? draw(random, n + 1)
                   : side == 1 ? draw(random, 3)
                               : n - draw(random, 3);
    const Int index = std::clamp<Int>(at, 0, n);
    switch (draw(random, 8)) {
      case 0:
      case 1:
      case 2: {
        if (!isGrowing) break;
        const Int width = draw(random, draw(random, 9) == 0 ? 90 : 3);
        buffer.openGap(index, width);
        fill(buffer, expected, index, width);
        break;
      }
      case 3:
      case 4: {
        const Int width = std::min(n - index, draw(random, isGrowing ? 2 : 12));
        buffer.closeGap(index, width);
        expected.erase(expected.begin() + index, expected.begin() + index + width);
        break;
      }
      case 5:
        if (n == 0) break;
        {
          const Int from = draw(random, n);
          const Int to = draw(random, n);
          buffer.move(from, to);
          BoxHeader* const moved = expected[static_cast<std::size_t>(from)];
          expected.erase(expected.begin() + from);
          expected.insert(expected.begin() + to, moved);
        }
        break;
      case 6: {
        const auto indexes = ascending(n + 1, false);
        buffer.openGaps(indexes);
        for (std::size_t k = 0; k < indexes.size(); ++k) {
          fill(buffer, expected, indexes[k] + static_cast<Int>(k), 1);
        }
        break;
      }
      default: {
        const auto indexes = ascending(n, true);
        buffer.closeGaps(indexes);
        for (auto k = indexes.rbegin(); k != indexes.rend(); ++k) {
          expected.erase(expected.begin() + *k);
        }
        buffer.append(newHandle());
        expected.push_back(buffer.data()[buffer.count() - 1]);
        if (draw(random, 50) == 0) buffer.reserve(n + draw(random, 200));
      }
    }
    ASSERT_TRUE(
        std::equal(expected.begin(), expected.end(), buffer.data(), buffer.data() + buffer.count()))
        << "step " << i;
  }
  const HandleBuffer copy(buffer);
  buffer.clear();
  EXPECT_TRUE(
      std::equal(expected.begin(), expected.end(), copy.data(), copy.data() + copy.count()));
}

TEST_F(HandleBufferTest, findsNearAndNoFurther) {
  for (const Int count : {0, 1, 5, 16, 17, 40, 700}) {
    HandleBuffer buffer;
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
