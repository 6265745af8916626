// Random operations on a Kerray under views, compared with naive models after each.
#include <gtest/gtest.h>

#include "tests/DataStructures/KerrayModel.h"

namespace tolvanite::testing {
namespace {

template <typename T>
struct Blocks {
  using Filter = typename ViewModel<T>::Filter;
  using Sort = std::optional<NamedSortBlock<T>>;

  static Filter filter(Int which) {
    if (which == 1) return [](const T& e) { return itemOf(e).group != 0; };
    if (which == 2) return [](const T& e) { return itemOf(e).rank < 5; };
    if (which == 3) return [](const T& e) { return itemOf(e).key % 3 != 0; };
    return nullptr;
  }
  static Sort sort(Int which) {
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
};

template <typename T>
ViewModel<T> viewOf(Int filter, Int sort) {
  ViewModel<T> view;
  view.filterAtCreation = view.filter = Blocks<T>::filter(filter);
  view.sort = Blocks<T>::sort(sort);
  return view;
}

template <typename T>
void setBlock(Pair<T>& pair, Random& random) {
  const auto which = static_cast<std::size_t>(draw(random, static_cast<Int>(pair.reals.size())));
  ViewModel<T>& view = pair.model.views[which];
  if (draw(random, 2) == 0) {
    const auto filter = Blocks<T>::filter(draw(random, 4));
    pair.reals[which].view->setFilterBlock(filter);
    view.setFilterBlock(pair.model.content, filter);
  } else {
    const auto sort = Blocks<T>::sort(draw(random, 6));
    pair.reals[which].view->setSortBlock(Optional<NamedSortBlock<T>>(sort));
    view.setSortBlock(pair.model.content, sort);
  }
}

// An element that lives in a pointer is changed where it is, and only then announced.
template <typename T>
void changeInPlace(Pair<T>& pair, Random& random) {
  if constexpr (std::is_same_v<T, SharedItem>) {
    const Int index = draw(random, pair.model.count());
    const Int rank = draw(random, 9);
    if (pair.model.count() == 0) return;
    pair.step([&](auto& target) {
      const T element = target.array()[static_cast<std::size_t>(index)];
      const Item old = std::exchange(*element, Item{element->key, rank, element->group});
      try {
        return textForm(target.update(element));
      } catch (Fatal) {
        *element = old;
        throw;
      }
    });
  }
}

template <typename T>
void run(std::vector<ViewModel<T>> views, std::uint64_t seed, Int startCount, int steps,
         bool setsBlocks, bool nests) {
  if (::testing::Test::HasFailure()) return;
  SCOPED_TRACE("seed " + std::to_string(seed));
  Random random(seed);
  Pair<T> pair(std::move(views));
  std::vector<T> start;
  for (Int key = startCount; key > 0; --key) {
    start.push_back(makeElement<T>(key, draw(random, 9), draw(random, 4)));
  }
  pair.step([&](auto& target) { return target.replaceContent(start), ""; });
  ASSERT_TRUE(pair.isSame(random));
  int done = 0;
  for (int i = 0; i < steps; ++i) {
    if (setsBlocks && draw(random, 40) == 0) setBlock(pair, random);
    if (draw(random, 5) == 0) changeInPlace(pair, random);
    if (nests) pair.nest({Random(random())}, {Random(random())});
    done += pair.randomlyStep(random) ? 1 : 0;
    ASSERT_TRUE(pair.isSame(random)) << "step " << i;
  }
  EXPECT_GT(done, steps / 5);
}

template <typename T>
class LiveViewPropertyTest : public ::testing::Test {};
using ElementTypes = ::testing::Types<Item, SharedItem, StrictItem>;
TYPED_TEST_SUITE(LiveViewPropertyTest, ElementTypes);

TYPED_TEST(LiveViewPropertyTest, everyCombinationFollowsAsTheModel) {
  for (Int filter = 0; filter < 4; ++filter) {
    for (Int sort = 0; sort < 5; ++sort) {
      SCOPED_TRACE(std::to_string(filter) + " " + std::to_string(sort));
      const auto seed = static_cast<std::uint64_t>(filter * 5 + sort);
      run<TypeParam>({viewOf<TypeParam>(filter, sort)}, seed, 0, 500, false, false);
      run<TypeParam>({viewOf<TypeParam>(filter, sort)}, seed, 40, 500, true, false);
    }
  }
}

TYPED_TEST(LiveViewPropertyTest, longOnesToo) {
  run<TypeParam>({viewOf<TypeParam>(0, 1)}, 1, 900, 1500, false, false);
  run<TypeParam>({viewOf<TypeParam>(1, 3)}, 2, 900, 1500, false, false);
  run<TypeParam>({viewOf<TypeParam>(1, 0)}, 3, 900, 1500, false, false);
  run<TypeParam>({viewOf<TypeParam>(0, 2)}, 4, 900, 1500, true, false);
}

TYPED_TEST(LiveViewPropertyTest, twoViewsOnOneBase) {
  for (std::uint64_t seed = 0; seed < 8; ++seed) {
    const auto which = static_cast<Int>(seed);
    run<TypeParam>({viewOf<TypeParam>(which % 4, 1), viewOf<TypeParam>(1, which % 5)}, seed, 100,
                   600, seed % 2 == 0, false);
  }
}

TYPED_TEST(LiveViewPropertyTest, changesFromWithinTheEventsOfTheBase) {
  for (std::uint64_t seed = 0; seed < 16; ++seed) {
    const auto which = static_cast<Int>(seed);
    run<TypeParam>({viewOf<TypeParam>(which % 4, which % 5), viewOf<TypeParam>(0, 1)}, seed, 30,
                   600, seed % 3 == 0, true);
  }
}

}  // namespace
}  // namespace tolvanite::testing
