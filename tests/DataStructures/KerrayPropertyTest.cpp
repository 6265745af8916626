// Random operations on a Kerray with and without views, compared with naive models after each.
#include <gtest/gtest.h>

#include "tests/DataStructures/KerrayModel.h"

namespace tolvanite::testing {
namespace {

template <typename T>
struct KerrayPropertyTest : ::testing::Test {
  using View = ViewModel<T>;
  struct Plan {
    Int startCount = 0;
    int steps = 0;
    bool setsBlocks = false;
    bool nests = false;
  };

  static typename View::Filter filter(Int which) {
    if (which == 1) return [](const T& e) { return itemOf(e).group != 0; };
    if (which == 2) return [](const T& e) { return itemOf(e).rank < 5; };
    if (which == 3) return [](const T& e) { return itemOf(e).key % 3 != 0; };
    return nullptr;
  }
  static typename View::Sort sort(Int which) {
    // Many ties in either.
    const NamedSortBlock<T> byRank{
        "rank", [](const T& a, const T& b) { return itemOf(a).rank < itemOf(b).rank; }};
    const NamedSortBlock<T> byGroup{
        "group", [](const T& a, const T& b) { return itemOf(a).group > itemOf(b).group; }};
    if (which == 1) return byRank;
    if (which == 2) return byGroup;
    if (which == 3) return byRank.reversed();
    if (which == 4) return byGroup.reversed();
    // The same code counts as the same order, so that the array is left as it stands.
    if (which == 5) return NamedSortBlock<T>{"rank", byGroup.sortBlock};
    return {};
  }
  static View view(Int filterBlock, Int sortBlock) {
    return {filter(filterBlock), sort(sortBlock)};
  }

  static void setBlock(Pair<T>& pair, Random& random) {
    const auto which = static_cast<std::size_t>(draw(random, static_cast<Int>(pair.reals.size())));
    if (draw(random, 2) == 0) {
      const auto block = filter(draw(random, 4));
      pair.reals[which].view->setFilterBlock(block);
      pair.model.views[which].setFilterBlock(pair.model.content, block);
    } else {
      const auto block = sort(draw(random, 6));
      pair.reals[which].view->setSortBlock(Optional<NamedSortBlock<T>>(block));
      pair.model.views[which].setSortBlock(pair.model.content, block);
    }
  }
  // An element that lives in a pointer is changed where it is, and only then announced.
  static void changeInPlace(Pair<T>& pair, Random& random) {
    const Int index = draw(random, pair.model.count());
    const Int rank = draw(random, 9);
    if constexpr (std::is_same_v<T, SharedItem>) {
      if (pair.model.count() == 0) return;
      pair.step([&](auto& target) {
        const T element = target.array()[static_cast<std::size_t>(index)];
        const Int old = std::exchange(element->rank, rank);
        try {
          return textForm(target.update(element));
        } catch (Fatal) {
          element->rank = old;
          throw;
        }
      });
    }
  }

  static void run(std::vector<View> views, std::uint64_t seed, Plan plan) {
    if (HasFailure()) return;
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    Pair<T> pair(std::move(views));
    std::vector<T> start;
    for (Int key = plan.startCount; key > 0; --key) {
      start.push_back(makeElement<T>(key, draw(random, 9), draw(random, 4)));
    }
    pair.step([&](auto& target) { return target.replaceContent(start), ""; });
    ASSERT_TRUE(pair.isSame(random));
    int done = 0;
    for (int i = 0; i < plan.steps; ++i) {
      if (plan.setsBlocks && draw(random, 40) == 0) setBlock(pair, random);
      if (draw(random, 5) == 0) changeInPlace(pair, random);
      if (plan.nests) pair.nest({Random(random()), Random(random())}, {Random(random())});
      done += pair.randomlyStep(random) ? 1 : 0;
      ASSERT_TRUE(pair.isSame(random)) << "step " << i;
    }
    EXPECT_GT(done, plan.steps / 6);
  }
};
using ElementTypes = ::testing::Types<Item, SharedItem, StrictItem>;
TYPED_TEST_SUITE(KerrayPropertyTest, ElementTypes);

TYPED_TEST(KerrayPropertyTest, alone) {
  for (std::uint64_t seed = 0; seed < 4; ++seed) {
    // Long ones, so that an element is sought far from where it stood last.
    this->run({}, seed, {.startCount = seed == 0 ? 700 : 0, .steps = 1500});
    this->run({}, seed, {.steps = 1000, .nests = true});
  }
}

TYPED_TEST(KerrayPropertyTest, everyCombinationOfFilterAndOrder) {
  for (Int filter = 0; filter < 4; ++filter) {
    for (Int sort = 0; sort < 5; ++sort) {
      SCOPED_TRACE(std::to_string(filter) + " " + std::to_string(sort));
      const auto seed = static_cast<std::uint64_t>(filter * 5 + sort);
      this->run({this->view(filter, sort)}, seed, {.steps = 400});
      this->run({this->view(filter, sort)}, seed,
                {.startCount = 40, .steps = 400, .setsBlocks = true});
      this->run({this->view(filter, sort), this->view(0, 1)}, seed,
                {.startCount = 30, .steps = 300, .setsBlocks = sort == 2, .nests = true});
    }
  }
}

TYPED_TEST(KerrayPropertyTest, longOnesAndTwoViewsOnOneBase) {
  this->run({this->view(0, 1), this->view(1, 0)}, 1, {.startCount = 900, .steps = 500});
  this->run({this->view(1, 3), this->view(0, 2)}, 2,
            {.startCount = 900, .steps = 500, .setsBlocks = true});
  this->run({this->view(3, 1), this->view(1, 4)}, 3,
            {.startCount = 100, .steps = 800, .setsBlocks = true});
}

}  // namespace
}  // namespace tolvanite::testing
