// What a filtered and sorted view does with each event of its base, the odd reactions included.
#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <typename T>
using ViewOf = OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>;
using View = ViewOf<Item>;
using Sort = NamedSortBlock<Item>;

const Sort byRank{"rank", [](const Item& a, const Item& b) { return a.rank < b.rank; }};
bool isGrouped(const Item& item) { return item.group != 0; }

void expectStop(const auto& call, const std::string& text) {
  EXPECT_EXIT(call(), ::testing::KilledBySignal(SIGABRT),
              "^Fatal error: " + text + ": file .*, line [0-9]+\n$");
}

struct LiveViewTest : ::testing::Test {
  std::shared_ptr<View> make(View::FilterBlock filter = nullptr, View::SortBlock sort = {}) {
    view = View::make(base, std::move(filter), std::move(sort));
    listener = std::make_unique<Listener>(*view);
    return view;
  }
  Changes heard() { return listener->heard(); }
  Texts shown() const { return textsOf(*view); }

  std::shared_ptr<Kerray<Item>> base =
      Kerray<Item>::make({Item{1, 30, 1}, Item{2, 20, 0}, Item{3, 10, 1}, Item{4, 20, 1}});
  std::shared_ptr<View> view;
  std::unique_ptr<Listener> listener;
};

TEST_F(LiveViewTest, passesThroughUntilAllIsRemoved) {
  make();
  EXPECT_FALSE(view->filteredsortedArray().has_value());
  base->insert({9, 0, 0}, 1);
  base->insertMultiple(std::vector<Item>{{7, 0, 0}, {8, 0, 0}}, 0);
  base->insertMultipleDistributed(std::vector<Item>{{6, 0, 0}}, {2});
  base->removeAtIndexes({0, 2});
  base->update(Item{9, 5, 0});
  base->move(2, 0);
  base->move({0, 1}, 2);
  base->removeAtIndex(0);
  EXPECT_THAT(heard(),
              ElementsAre(Change{"inserted", {1}, {"9/0/0"}},
                          Change{"insertedMultipleContinuous", {0}, {"7/0/0", "8/0/0"}},
                          Change{"insertedMultipleDistributed", {2}, {"6/0/0"}},
                          Change{"removedMultiple", {2, 0}, {"6/0/0", "7/0/0"}},
                          Change{"updated", {2}, {"9/5/0"}}, Change{"moved", {2}, {"9/5/0"}, 0},
                          Change{"movedMultiple", {0, 1}, {"8/0/0", "9/5/0"}, 2},
                          Change{"removed", {0}, {"1/30/1"}}));
  EXPECT_EQ(shown(), textsOf(*base));
  EXPECT_TRUE(view->contains({9, 0, 0}));
  EXPECT_TRUE(view->containsElementWithKey(4));
  EXPECT_EQ(view->indexOf({3, 0, 0}), base->indexOf({3, 0, 0}));
  EXPECT_FALSE(view->atIndex(view->count()).has_value());
  EXPECT_EQ(view->atIndex(0)->key, (*base)[0].key);

  base->removeAll();
  base->append({1, 0, 0});
  base->appendMultiple(std::vector<Item>{{2, 0, 0}});
  base->update(Item{1, 1, 1});
  EXPECT_EQ(view->count(), 0);
  EXPECT_FALSE(view->contains({1, 0, 0}));
  EXPECT_THAT(heard(), ElementsAre(Change{"removedAll"}, Change{"inserted", {0}, {"1/0/0"}},
                                   Change{"insertedMultipleContinuous", {1}, {"2/0/0"}},
                                   Change{"updated", {0}, {"1/1/1"}}));
  base->replaceContent(std::vector<Item>{{3, 0, 0}});
  EXPECT_TRUE(view->isEmpty()) << "no rebuild without a block";
  view->setSortBlock(byRank);
  view->setSortBlock({});
  EXPECT_FALSE(view->filteredsortedArray().has_value());
  EXPECT_EQ(view->count(), 1);
}

TEST_F(LiveViewTest, insertionsPassByTheFilterOfTheCreation) {
  make();
  view->setFilterBlock(isGrouped);
  heard();
  base->insert({9, 0, 0}, 1);
  base->insertMultiple(std::vector<Item>{{7, 0, 0}}, 0);
  EXPECT_THAT(heard(), ElementsAre(Change{"inserted", {1}, {"9/0/0"}},
                                   Change{"insertedMultipleContinuous", {0}, {"7/0/0"}}));
  EXPECT_EQ(shown(), (Texts{"1/30/1", "3/10/1", "4/20/1"}));

  make(isGrouped);
  view->setFilterBlock(nullptr);
  EXPECT_FALSE(view->filteredsortedArray().has_value());
  base->append({10, 0, 0});
  heard();
  base->append({11, 0, 1});
  EXPECT_THAT(heard(), ElementsAre(Change{"inserted", {3}, {"11/0/1"}}));
  EXPECT_EQ(shown(), (Texts{"1/30/1", "3/10/1", "4/20/1", "11/0/1"}));

  // The array that such an insertion leaves behind is not rebuilt, and is searched by equality.
  base->replaceContent(std::vector<Item>{{3, 0, 0}});
  EXPECT_EQ(view->count(), 4);
  EXPECT_TRUE(view->contains({3, 0, 0}));
  heard();
  base->removeElementWithKey(3);
  EXPECT_THAT(heard(), ElementsAre(Change{"removed", {1}, {"3/0/0"}}));
}

TEST_F(LiveViewTest, aBatchThatPassesAsAWholeIsIgnored) {
  for (const bool isSorted : {false, true}) {
    base->replaceContent(std::vector<Item>{{1, 30, 1}, {3, 10, 1}});
    make(isGrouped, isSorted ? View::SortBlock(byRank) : View::SortBlock());
    base->appendMultiple(std::vector<Item>{{5, 0, 1}, {6, 0, 1}});
    base->insertMultipleDistributed(std::vector<Item>{{7, 0, 1}}, {0});
    EXPECT_THAT(heard(), IsEmpty());
    EXPECT_EQ(view->count(), 2);
    base->insertMultipleDistributed(std::vector<Item>{{10, 5, 1}, {11, 5, 0}, {12, 4, 1}},
                                    {0, 0, 0});
    if (isSorted) {
      EXPECT_THAT(heard(),
                  ElementsAre(Change{"insertedMultipleDistributed", {0, 1}, {"12/4/1", "10/5/1"}}));
      EXPECT_EQ(shown(), (Texts{"12/4/1", "10/5/1", "3/10/1", "1/30/1"}));
    } else {
      // The ignored ones come in with the refill. The list is parallel to the new elements.
      EXPECT_THAT(heard(),
                  ElementsAre(Change{"insertedMultipleDistributed", {1, 0}, {"10/5/1", "12/4/1"}}));
      EXPECT_EQ(shown(),
                (Texts{"12/4/1", "10/5/1", "7/0/1", "1/30/1", "3/10/1", "5/0/1", "6/0/1"}));
    }
    base->appendMultiple(std::vector<Item>{{20, 0, 0}});
    EXPECT_THAT(heard(), ElementsAre(Change{"insertedMultipleDistributed"})) << "none passes";
  }
}

TEST_F(LiveViewTest, filteredInNaturalOrderItKeepsOldContentAndTellsBaseIndexes) {
  make(isGrouped);
  base->update(Item{4, 77, 1});
  base->move(3, 0);
  EXPECT_THAT(heard(),
              ElementsAre(Change{"updated", {3}, {"4/77/1"}}, Change{"moved", {3}, {"4/77/1"}, 0}));
  EXPECT_EQ(shown(), (Texts{"1/30/1", "3/10/1", "4/20/1"}));
  base->removeAtIndexes({1, 0, 2});
  EXPECT_THAT(heard(), ElementsAre(Change{"removedMultiple", {0, 2}, {"1/30/1", "4/77/1"}}))
      << "in the order of the kept elements, with the view's indexes";
  base->append({5, 0, 1});
  base->insert({6, 0, 1}, 0);
  EXPECT_THAT(heard(),
              ElementsAre(Change{"inserted", {1}, {"5/0/1"}}, Change{"inserted", {0}, {"6/0/1"}}));
  base->update(Item{5, 1, 1});
  base->append({8, 0, 1});
  EXPECT_EQ(shown(), (Texts{"6/0/1", "3/10/1", "5/1/1", "8/0/1"})) << "a refill brings the new";
  base->replaceContent(std::vector<Item>{{1, 0, 0}, {2, 0, 1}});
  EXPECT_EQ(shown(), Texts{"2/0/1"});
}

TEST_F(LiveViewTest, updatesUnderAFilter) {
  for (const bool isSorted : {false, true}) {
    base->replaceContent(
        std::vector<Item>{{1, 30, 1}, {2, 20, 0}, {3, 10, 1}, {4, 20, 0}, {5, 0, 0}});
    make(isGrouped, isSorted ? View::SortBlock(byRank) : View::SortBlock());
    base->update(Item{2, 21, 0});
    EXPECT_THAT(heard(), IsEmpty()) << "still not included";
    base->update(Item{5, 99, 1});  // behind 3, its neighbour that passes, whatever its rank
    base->update(Item{1, 30, 0});
    base->update(Item{2, 22, 1});  // before all, for want of a neighbour
    const Int one = isSorted ? 2 : 0;
    const Int five = isSorted ? 1 : 2;
    EXPECT_THAT(heard(), ElementsAre(Change{"inserted", {five}, {"5/99/1"}},
                                     Change{"removed", {one}, {"1/30/0"}},
                                     Change{"inserted", {0}, {"2/22/1"}}));
    EXPECT_EQ(shown(), (Texts{"2/22/1", "3/10/1", "5/99/1"}));
  }
  // The batch goes by the halving of the array as it stands, which is out of order now.
  base->appendMultiple(std::vector<Item>{{10, 50, 1}, {11, 0, 0}, {12, 15, 1}});
  EXPECT_THAT(heard(),
              ElementsAre(Change{"insertedMultipleDistributed", {2, 3}, {"12/15/1", "10/50/1"}}));
}

TEST_F(LiveViewTest, sorted) {
  make(nullptr, byRank);
  EXPECT_EQ(shown(), (Texts{"3/10/1", "2/20/0", "4/20/1", "1/30/1"}));
  base->append({5, 20, 0});
  base->appendMultiple(std::vector<Item>{{6, 40, 0}, {7, 10, 0}, {8, 40, 0}});
  base->removeAtIndexes({0, 2});
  base->move(0, 2);
  EXPECT_THAT(
      heard(),
      ElementsAre(Change{"inserted", {1}, {"5/20/0"}},
                  Change{"insertedMultipleDistributed", {0, 6, 6}, {"7/10/0", "6/40/0", "8/40/0"}},
                  Change{"removedMultiple", {1, 5}, {"3/10/1", "1/30/1"}}));
  EXPECT_EQ(shown(), (Texts{"7/10/0", "5/20/0", "2/20/0", "4/20/1", "8/40/0", "6/40/0"}));

  // Each observer in turn hears of the move and of the update.
  OwnerToken owner;
  view->observers.createNew(owner, [&](auto& observer) {
    hearAll(observer, [&](Change change) {
      change.event += " by the second";
      listener->changes.push_back(change);
    });
  });
  base->update(Item{2, 35, 0});
  base->update(Item{5, 11, 0});
  EXPECT_THAT(heard(),
              ElementsAre(Change{"moved", {2}, {"2/35/0"}, 3}, Change{"updated", {3}, {"2/35/0"}},
                          Change{"moved by the second", {2}, {"2/35/0"}, 3},
                          Change{"updated by the second", {3}, {"2/35/0"}},
                          Change{"updated", {1}, {"5/11/0"}},
                          Change{"updated by the second", {1}, {"5/11/0"}}));
  EXPECT_EQ(view->update({5, 10, 0})->rank, 10);
  EXPECT_EQ(shown()[1], "5/10/0") << "ties stay";
  EXPECT_EQ(view->removeElementWithKey(5)->key, 5);
  EXPECT_EQ(view->remove({7, 0, 0})->key, 7);
  view->removeAll();
  EXPECT_TRUE(base->isEmpty());
}

TEST_F(LiveViewTest, settingTheBlocks) {
  make();
  view->setFilterBlock(nullptr);
  view->setSortBlock({});
  EXPECT_THAT(heard(), IsEmpty());
  view->setSortBlock(byRank);
  view->setFilterBlock(isGrouped);
  view->setFilterBlock(isGrouped);
  view->setSortBlock(byRank.reversed());
  EXPECT_EQ(shown(), (Texts{"1/30/1", "4/20/1", "3/10/1"}));
  view->setFilterBlock(nullptr);
  view->setSortBlock({});
  EXPECT_THAT(heard(),
              ElementsAre(Change{"sortingChanged", {}, {"rank"}}, Change{"filterChanged"},
                          Change{"filterChanged"}, Change{"sortingChanged", {}, {"rank_reversed"}},
                          Change{"filterChanged"}, Change{"sortingChanged", {}, {"none"}}));

  // An equal code is stored, and nothing else happens; later searches ask the new block.
  make(nullptr, byRank);
  view->setSortBlock(Sort{"rank", [](const Item& a, const Item& b) { return a.rank > b.rank; }});
  EXPECT_THAT(heard(), IsEmpty());
  EXPECT_EQ(shown(), (Texts{"3/10/1", "2/20/0", "4/20/1", "1/30/1"}));
  base->appendMultiple(std::vector<Item>{{10, 5, 0}, {11, 15, 0}});
  EXPECT_THAT(heard(),
              ElementsAre(Change{"insertedMultipleDistributed", {4, 5}, {"11/15/0", "10/5/0"}}));
}

using LiveViewDeathTest = LiveViewTest;

TEST_F(LiveViewDeathTest, stops) {
  make(isGrouped);
  const auto unnatural = "CurrentlyNotSortedInNaturalOrder";
  expectStop([&] { view->insertAtIndex({9, 0, 0}, 0); }, unnatural);
  expectStop([&] { view->moveFrom(1, 1); }, unnatural);
  expectStop([&] { view->moveFrom(std::vector<Int>{1}, 0); }, unnatural);
  expectStop([&] { view->containsElementWithKey(1); }, "llll");
  expectStop([&] { view->indexOf({1, 0, 0}); }, "llll");
  expectStop([&] { base->update(std::vector<Item>{}); }, "llll");
  expectStop([&] { base->move(std::vector<Int>{}, 0); }, "filterblock is not nil");
  expectStop([&] { static_cast<void>((*view)[3]); }, "Index 3 out of range, 3 elements");
  view->setSortBlock(byRank);
  expectStop([&] { base->move({0, 1}, 0); }, "sortblock is not nil");

  make();
  expectStop([&] { base->update(std::vector<Item>{}); }, "llll");
  expectStop([&] { view->moveFrom(std::vector<Int>{}, 0); }, ".*");
  base->removeAll();
  expectStop([&] { base->move(std::vector<Int>{}, 0); }, "should neve be possible");
  expectStop([&] { view->insertAtIndex({9, 0, 0}, 0); }, unnatural);
  base->append({1, 0, 0});
  expectStop([&] { base->removeAtIndex(0); }, ".*1/0/0");  // it is not in the view
}

TEST_F(LiveViewTest, editsInNaturalOrderGoToTheBase) {
  make();
  view->insertAtIndex({9, 0, 0}, 1);
  EXPECT_THROW(view->insertAtIndex({9, 0, 0}, 1), KerrayErrur);
  heard();
  view->moveFrom(1, 1);
  view->moveFrom({1, 2, 3}, 1);
  view->moveFrom({1, 2, 3}, 0);
  view->moveFrom(0, 4);
  EXPECT_THAT(heard(),
              ElementsAre(Change{"moved", {1}, {"9/0/0"}, 0}, Change{"moved", {0}, {"9/0/0"}, 4}));
}

TEST_F(LiveViewTest, descriptions) {
  const std::string name = "OptionallyFilteredOptionallySortedArray_BasedOnKerray(sortBlock:";
  EXPECT_EQ(make(isGrouped, byRank)->description(),
            name + "rank, count: 3, elements: 3/10/1, 4/20/1, 1/30/1)");
  make();
  base->removeAll();
  EXPECT_EQ(view->description(), name + "n/a, count: 0, elements: <none>)");
  view = nullptr;
  std::string texts;
  for (Int key = 0; key < 10; ++key) {
    base->append({key, 0, 0});
    texts += (key > 0 ? ", " : "") + textForm((*base)[key]);
  }
  EXPECT_EQ(make()->description(), name + "n/a, count: 10, elements: " + texts + ")");
  base->append({10, 0, 0});
  EXPECT_EQ(view->description(), name + "n/a, count: 11, elements: " + texts + ", ...)");

  struct Silent {
    Int key;
    bool operator==(const Silent&) const = default;
  };
  EXPECT_EQ(ViewOf<Silent>::make(Kerray<Silent>::make({Silent{1}}))->description(),
            name + "n/a, count: 1, elements: <not CustomStringConvertible>)");
}

TEST_F(LiveViewTest, anObserverBeforeTheViewSeesItAsItWas) {
  OwnerToken owner;
  Texts seen;
  base->observers.createNew(owner, [&](KerrayObserver<Item>& observer) {
    observer.removed = [&](Kerray<Item>&, Int, const Item& item) {
      seen.push_back(view->contains(item) ? "shown" : "not shown");
      if (item.key == 1) base->remove(Item{3, 0, 0});
    };
    observer.inserted = [&](Kerray<Item>&, Int, const Item& item) {
      if (item.key == 9) base->update(Item{9, 5, 1});
    };
  });
  make(isGrouped, byRank);
  base->remove(Item{1, 0, 0});
  EXPECT_EQ(seen, (Texts{"shown", "shown"}));
  EXPECT_FALSE(view->contains({1, 0, 0}));
  EXPECT_THAT(heard(),
              ElementsAre(Change{"removed", {0}, {"3/10/1"}}, Change{"removed", {1}, {"1/30/1"}}));
  // Hearing of the update first it takes it for an insertion, and then inserts once more.
  base->append({9, 50, 1});
  EXPECT_THAT(heard(),
              ElementsAre(Change{"inserted", {1}, {"9/5/1"}}, Change{"inserted", {2}, {"9/50/1"}}));
}

TEST_F(LiveViewTest, aViewMayBeLetGoByItsOwnObserver) {
  std::weak_ptr<View> gone;
  for (const bool isSorted : {false, true}) {
    make(nullptr, isSorted ? View::SortBlock(byRank) : View::SortBlock());
    gone = view;
    OwnerToken owner;
    Texts calls;
    for (int i = 0; i < 2; ++i) {
      view->observers.createNew(owner, [&](auto& observer) {
        hearAll(observer, [&](const Change& change) {
          view.reset();
          calls.push_back(change.event);
        });
      });
    }
    Listener last(*base);
    base->update(Item{1, isSorted ? 0 : 9, 1});
    EXPECT_EQ(calls, isSorted ? (Texts{"moved", "updated", "moved", "updated"})
                              : (Texts{"updated", "updated"}));
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(last.heard().size(), 1u);
    base->update(Item{1, 30, 1});

    make(isGrouped);
    view->observers.createNew(owner, [&](auto& observer) {
      observer.sortingChanged = [&](auto&, auto&) { view.reset(); };
    });
    gone = view;
    view->setSortBlock(byRank);
    EXPECT_TRUE(gone.expired());
  }
  EXPECT_EQ(base.use_count(), 1);
}

TEST(LiveViewOfPointersTest, elementsThatChangeWhereTheyAre) {
  const auto base = Kerray<SharedItem>::make();
  for (Int key = 0; key < 6; ++key) base->append(makeElement<SharedItem>(key, 10 * key));
  const auto view = ViewOf<SharedItem>::make(
      base, nullptr, NamedSortBlock<SharedItem>{"rank", [](const auto& a, const auto& b) {
                                                  return a->rank < b->rank;
                                                }});
  Listener listener(*view);
  const auto change = [&](Int index, Int rank) { (*base)[index]->rank = rank; };
  change(0, 35);
  base->update((*base)[0]);
  EXPECT_THAT(listener.heard(),
              ElementsAre(Change{"moved", {0}, {"0/35/0"}, 3}, Change{"updated", {3}, {"0/35/0"}}));
  // Two at once: what is not yet announced stands out of order when the first is.
  change(1, 99);
  change(5, 1);
  base->appendMultiple(
      std::vector<SharedItem>{makeElement<SharedItem>(7, 15), makeElement<SharedItem>(8, 45)});
  EXPECT_THAT(listener.heard(),
              ElementsAre(Change{"insertedMultipleDistributed", {0, 7}, {"7/15/0", "8/45/0"}}));
  base->update((*base)[1]);
  base->update((*base)[5]);
  EXPECT_EQ(textsOf(*view),
            (Texts{"5/1/0", "7/15/0", "2/20/0", "3/30/0", "0/35/0", "4/40/0", "8/45/0", "1/99/0"}));
}

TEST(LiveViewOfStrictItemsTest, equalityThatCoversContent) {
  const auto base = Kerray<StrictItem>::make();
  for (Int key = 0; key < 3; ++key) base->append(makeElement<StrictItem>(key, 10 * key, 1));
  const auto sorted = ViewOf<StrictItem>::make(
      base, nullptr, NamedSortBlock<StrictItem>{"rank", [](const auto& a, const auto& b) {
                                                  return a.rank < b.rank;
                                                }});
  expectStop([&] { base->update(makeElement<StrictItem>(1, 11, 1)); }, ".*1/11/1");
  sorted->setSortBlock({});
  sorted->setFilterBlock([](const StrictItem& item) { return item.group == 1; });
  // Not found, it counts as come to pass; the old content stays beside it, and can be found.
  base->update(makeElement<StrictItem>(1, 11, 1));
  EXPECT_EQ(textsOf(*sorted), (Texts{"0/0/1", "1/11/1", "1/10/1", "2/20/1"}));
  base->removeElementWithKey(1);
  base->append(makeElement<StrictItem>(1, 12, 1));
  EXPECT_TRUE(sorted->contains(makeElement<StrictItem>(1, 10, 1)));
}

}  // namespace
}  // namespace tolvanite::testing
