// Random operations on a Kerray, compared with a naive model after each.
#include <gtest/gtest.h>

#include "tests/DataStructures/KerrayModel.h"

namespace tolvanite::testing {
namespace {

template <typename T>
class KerrayPropertyTest : public ::testing::Test {};
using ElementTypes = ::testing::Types<Item, StrictItem, SharedItem>;
TYPED_TEST_SUITE(KerrayPropertyTest, ElementTypes);

TYPED_TEST(KerrayPropertyTest, doesWhatTheModelDoes) {
  for (std::uint64_t seed = 0; seed < 6; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    Pair<TypeParam> pair;
    std::vector<TypeParam> start;
    // Long ones, so that an element is sought far from where it stood last.
    for (Int key = seed % 2 == 0 ? 700 : 0; key > 0; --key) {
      start.push_back(makeElement<TypeParam>(key, draw(random, 9)));
    }
    pair.step([&](auto& target) { return target.replaceContent(start), ""; });
    Texts copy = textsOf(start);
    pair.first.clear();
    pair.model.first.clear();
    int done = 0;
    for (int i = 0; i < 3000; ++i) {
      done += pair.randomlyStep(random) ? 1 : 0;
      for (const Change& change : pair.first) replay(change, copy, *pair.kerray);
      ASSERT_EQ(copy, textsOf(*pair.kerray)) << "the events alone must tell the content";
      ASSERT_TRUE(pair.isSame(random)) << "step " << i;
    }
    EXPECT_GT(done, 2000);
  }
}

TYPED_TEST(KerrayPropertyTest, doesSoWhenItIsChangedFromItsOwnEvents) {
  for (std::uint64_t seed = 0; seed < 4; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    Pair<TypeParam> pair;
    for (int i = 0; i < 1500; ++i) {
      pair.nest({Random(random()), Random(random())}, {Random(random())});
      pair.randomlyStep(random);
      ASSERT_TRUE(pair.isSame(random)) << "step " << i;
    }
  }
}

}  // namespace
}  // namespace tolvanite::testing
