// What a filtered and sorted view does with each event of its base, the odd reactions included.
#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::testing {
namespace {

template <typename T>
using ViewOf = OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>;
using View = ViewOf<Item>;
using Items = std::vector<Item>;

template <typename T>
NamedSortBlock<T> byRank() {
  return {"rank", [](const T& a, const T& b) { return itemOf(a).rank < itemOf(b).rank; }};
}
bool isGrouped(const Item& item) { return item.group != 0; }

void expectStop(const auto& call, const std::string& text) {
  EXPECT_EXIT(call(), ::testing::KilledBySignal(SIGABRT),
              "^Fatal error: " + text + ": file .*, line [0-9]+\n$");
}

std::string contentOf(const auto& elements) {
  std::string text;
  for (const auto& element : elements) text += (text.empty() ? "[" : ", ") + textForm(element);
  return text.empty() ? "[]" : text + "]";
}

struct LiveViewTest : ::testing::Test {
  std::shared_ptr<View> make(View::FilterBlock filter = nullptr, bool isSorted = false) {
    view = View::make(base, std::move(filter),
                      isSorted ? View::SortBlock(byRank<Item>()) : View::SortBlock());
    listener = std::make_unique<Listener>(*view);
    return view;
  }
  std::string heard() { return listener->heard(); }
  std::string shown() const { return contentOf(*view); }

  std::shared_ptr<Kerray<Item>> base =
      Kerray<Item>::make({Item{1, 30, 1}, Item{2, 20, 0}, Item{3, 10, 1}, Item{4, 20, 1}});
  std::shared_ptr<View> view;
  std::unique_ptr<Listener> listener;
  OwnerToken owner;
};

TEST_F(LiveViewTest, passesThroughUntilAllIsRemoved) {
  make();
  EXPECT_TRUE(view->containsElementWithKey(4));
  EXPECT_EQ(view->indexOf({3, 0, 0}), 2);
  EXPECT_EQ(view->atIndex(0)->key, 1);
  EXPECT_FALSE(view->atIndex(4).has_value());
  base->removeAll();
  base->append({1, 0, 0});
  base->appendMultiple(Items{{2, 0, 0}});
  base->update(Item{1, 1, 1});
  EXPECT_EQ(shown(), "[]");
  EXPECT_FALSE(view->contains({1, 0, 0}));
  EXPECT_EQ(heard(),
            "removedAll; inserted[0] 1/0/0; insertedMultipleContinuous[1] 2/0/0; updated[0] 1/1/1");
  base->replaceContent(Items{{3, 0, 0}});
  EXPECT_TRUE(view->isEmpty()) << "no rebuild without a block";
  view->setSortBlock(byRank<Item>());
  view->setSortBlock({});
  EXPECT_EQ(shown(), "[3/0/0]");
}

TEST_F(LiveViewTest, insertionsPassByTheFilterOfTheCreation) {
  make();
  view->setFilterBlock(isGrouped);
  base->insert({9, 0, 0}, 1);
  base->insertMultiple(Items{{7, 0, 0}}, 0);
  EXPECT_EQ(heard(), "filterChanged; inserted[1] 9/0/0; insertedMultipleContinuous[0] 7/0/0");
  EXPECT_EQ(shown(), "[1/30/1, 3/10/1, 4/20/1]");

  make(isGrouped);
  view->setFilterBlock(nullptr);
  EXPECT_FALSE(view->filteredsortedArray().has_value());
  base->append({10, 0, 0});
  base->append({11, 0, 1});
  EXPECT_EQ(heard(), "filterChanged; inserted[3] 11/0/1");
  EXPECT_EQ(shown(), "[1/30/1, 3/10/1, 4/20/1, 11/0/1]");
  // The array that such an insertion leaves behind is not rebuilt, and is searched by equality.
  base->replaceContent(Items{{3, 0, 0}});
  EXPECT_EQ(view->count(), 4);
  EXPECT_TRUE(view->contains({3, 0, 0}));
  base->removeElementWithKey(3);
  EXPECT_EQ(heard(), "replacedContent; removed[1] 3/0/0");
}

TEST_F(LiveViewTest, aBatchThatPassesAsAWholeIsIgnored) {
  for (const bool isSorted : {false, true}) {
    base->replaceContent(Items{{1, 30, 1}, {3, 10, 1}});
    make(isGrouped, isSorted);
    base->appendMultiple(Items{{5, 0, 1}, {6, 0, 1}});
    base->insertMultipleDistributed(Items{{7, 0, 1}}, {0});
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(view->count(), 2);
    base->insertMultipleDistributed(Items{{10, 5, 1}, {11, 5, 0}, {12, 4, 1}}, {0, 0, 0});
    // In natural order the ignored come in with the refill, and the list is parallel to the new.
    EXPECT_EQ(heard(), isSorted ? "insertedMultipleDistributed[0, 1] 12/4/1 10/5/1"
                                : "insertedMultipleDistributed[1, 0] 10/5/1 12/4/1");
    EXPECT_EQ(shown(), isSorted ? "[12/4/1, 10/5/1, 3/10/1, 1/30/1]"
                                : "[12/4/1, 10/5/1, 7/0/1, 1/30/1, 3/10/1, 5/0/1, 6/0/1]");
    base->appendMultiple(Items{{20, 0, 0}});
    EXPECT_EQ(heard(), "insertedMultipleDistributed") << "none passes";
  }
}

TEST_F(LiveViewTest, filteredInNaturalOrderItKeepsOldContentAndTellsBaseIndexes) {
  make(isGrouped);
  base->update(Item{4, 77, 1});
  base->move(3, 0);
  EXPECT_EQ(heard(), "updated[3] 4/77/1; moved[3]>0 4/77/1");
  EXPECT_EQ(shown(), "[1/30/1, 3/10/1, 4/20/1]");
  base->removeAtIndexes({1, 0, 2});
  EXPECT_EQ(heard(), "removedMultiple[0, 2] 1/30/1 4/77/1") << "in the order of the kept elements";
  base->append({5, 0, 1});
  base->update(Item{5, 1, 1});
  base->append({8, 0, 1});
  EXPECT_EQ(shown(), "[3/10/1, 5/1/1, 8/0/1]") << "a refill brings the new content";
}

TEST_F(LiveViewTest, updatesUnderAFilter) {
  for (const bool isSorted : {false, true}) {
    base->replaceContent(Items{{1, 30, 1}, {2, 20, 0}, {3, 10, 1}, {4, 20, 0}, {5, 0, 0}});
    make(isGrouped, isSorted);
    base->update(Item{2, 21, 0});  // still not included
    base->update(Item{5, 99, 1});  // behind 3, its neighbour that passes, whatever its rank
    base->update(Item{1, 30, 0});
    base->update(Item{2, 22, 1});  // before all, for want of a neighbour
    EXPECT_EQ(heard(), isSorted ? "inserted[1] 5/99/1; removed[2] 1/30/0; inserted[0] 2/22/1"
                                : "inserted[2] 5/99/1; removed[0] 1/30/0; inserted[0] 2/22/1");
    EXPECT_EQ(shown(), "[2/22/1, 3/10/1, 5/99/1]");
  }
  // The batch goes by the halving of the array as it stands, which is out of order now.
  base->appendMultiple(Items{{10, 50, 1}, {11, 0, 0}, {12, 15, 1}});
  EXPECT_EQ(heard(), "insertedMultipleDistributed[2, 3] 12/15/1 10/50/1");
}

TEST_F(LiveViewTest, eachObserverInTurnHearsOfTheMoveAndOfTheUpdate) {
  make(nullptr, true);
  view->observers.createNew(owner, [&](auto& observer) {
    hearAll(observer, [&](Change change) {
      change.event += " by the second";
      listener->changes.push_back(change);
    });
  });
  EXPECT_EQ(view->update({2, 35, 0})->rank, 35);
  EXPECT_EQ(heard(),
            "moved[1]>3 2/35/0; updated[3] 2/35/0; "
            "moved by the second[1]>3 2/35/0; updated by the second[3] 2/35/0");
  EXPECT_EQ(view->removeElementWithKey(3)->key, 3);
  EXPECT_EQ(view->remove({1, 0, 0})->key, 1);
  view->removeAll();
  EXPECT_TRUE(base->isEmpty());
}

TEST_F(LiveViewTest, settingTheBlocks) {
  make();
  view->setFilterBlock(nullptr);
  view->setSortBlock({});
  EXPECT_EQ(heard(), "");
  view->setFilterBlock(isGrouped);
  view->setFilterBlock(isGrouped);
  view->setSortBlock(byRank<Item>().reversed());
  EXPECT_EQ(shown(), "[1/30/1, 4/20/1, 3/10/1]");
  view->setFilterBlock(nullptr);
  view->setSortBlock({});
  EXPECT_EQ(heard(),
            "filterChanged; filterChanged; sortingChanged rank_reversed; filterChanged; "
            "sortingChanged none");
  // An equal code is stored, and nothing else happens; later searches ask the new block.
  make(nullptr, true);
  view->setSortBlock(NamedSortBlock<Item>{"rank", byRank<Item>().reversed().sortBlock});
  EXPECT_EQ(shown(), "[3/10/1, 2/20/0, 4/20/1, 1/30/1]");
  base->appendMultiple(Items{{10, 5, 0}, {11, 15, 0}});
  EXPECT_EQ(heard(), "insertedMultipleDistributed[4, 5] 11/15/0 10/5/0");
}

using LiveViewDeathTest = LiveViewTest;

TEST_F(LiveViewDeathTest, stops) {
  make(isGrouped);
  const auto unnatural = "CurrentlyNotSortedInNaturalOrder";
  expectStop([&] { view->insertAtIndex({9, 0, 0}, 0); }, unnatural);
  expectStop([&] { view->moveFrom(1, 1); }, unnatural);
  expectStop([&] { view->moveFrom(Indexes{1}, 0); }, unnatural);
  expectStop([&] { view->containsElementWithKey(1); }, "llll");
  expectStop([&] { view->indexOf({1, 0, 0}); }, "llll");
  expectStop([&] { base->update(Items{}); }, "llll");
  expectStop([&] { base->move(Indexes{}, 0); }, "filterblock is not nil");
  expectStop([&] { static_cast<void>((*view)[3]); }, "Index 3 out of range, 3 elements");
  view->setSortBlock(byRank<Item>());
  expectStop([&] { base->move({0, 1}, 0); }, "sortblock is not nil");

  make();
  expectStop([&] { base->update(Items{}); }, "llll");
  expectStop([&] { view->moveFrom(Indexes{}, 0); }, "moveFrom needs at least one index");
  base->removeAll();
  expectStop([&] { base->move(Indexes{}, 0); }, "should neve be possible");
  expectStop([&] { view->insertAtIndex({9, 0, 0}, 0); }, unnatural);
  base->append({1, 0, 0});
  const std::string lost = "Element of the base not found in its view: ";
  expectStop([&] { base->removeAtIndex(0); }, lost + "1/0/0");
  expectStop([] { View::make(nullptr); }, "A view needs a base");

  // Equality that covers what changes.
  const auto strict = Kerray<StrictItem>::make({makeElement<StrictItem>(1, 10, 1)});
  const auto sorted = ViewOf<StrictItem>::make(strict, nullptr, byRank<StrictItem>());
  expectStop([&] { strict->update(makeElement<StrictItem>(1, 11, 1)); }, lost + "1/11/1");
}

TEST_F(LiveViewTest, editsInNaturalOrderGoToTheBase) {
  make();
  view->insertAtIndex({9, 0, 0}, 1);
  EXPECT_THROW(view->insertAtIndex({9, 0, 0}, 1), KerrayErrur);
  view->moveFrom(1, 1);
  view->moveFrom({1, 2, 3}, 1);
  view->moveFrom({1, 2, 3}, 0);  // the first alone
  view->moveFrom(0, 4);
  EXPECT_EQ(heard(), "inserted[1] 9/0/0; moved[1]>0 9/0/0; moved[0]>4 9/0/0");
}

TEST_F(LiveViewTest, descriptions) {
  const std::string name = "OptionallyFilteredOptionallySortedArray_BasedOnKerray(sortBlock:";
  EXPECT_EQ(make(isGrouped, true)->description(),
            name + "rank, count: 3, elements: 3/10/1, 4/20/1, 1/30/1)");
  base->removeAll();
  EXPECT_EQ(make()->description(), name + "n/a, count: 0, elements: <none>)");
  view = nullptr;
  for (Int key = 0; key < 10; ++key) base->append({key, 0, 0});
  const std::string texts = "0/0/0, 1/0/0, 2/0/0, 3/0/0, 4/0/0, 5/0/0, 6/0/0, 7/0/0, 8/0/0, 9/0/0";
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
  base->observers.createNew(owner, [&](KerrayObserver<Item>& observer) {
    observer.removed = [&](Kerray<Item>&, Int, const Item& item) {
      EXPECT_TRUE(view->contains(item));
      if (item.key == 1) base->remove(Item{3, 0, 0});
    };
    observer.inserted = [&](auto&, Int, auto&) { base->update(Item{9, 5, 1}); };
  });
  make(isGrouped, true);
  base->remove(Item{1, 0, 0});
  EXPECT_FALSE(view->contains({1, 0, 0}));
  EXPECT_EQ(heard(), "removed[0] 3/10/1; removed[1] 1/30/1");
  // Hearing of the update first it takes it for an insertion, and then inserts once more.
  base->append({9, 50, 1});
  EXPECT_EQ(heard(), "inserted[1] 9/5/1; inserted[2] 9/50/1");
}

TEST_F(LiveViewTest, aViewMayBeLetGoByItsOwnObserver) {
  std::weak_ptr<View> gone;
  for (const bool isSorted : {false, true}) {
    make(nullptr, isSorted);
    gone = view;
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
    EXPECT_EQ(last.changes.size(), 1u);
    base->update(Item{1, 30, 1});
  }
  make(isGrouped);
  gone = view;
  view->observers.createNew(owner, [&](auto& observer) {
    observer.sortingChanged = [&](auto&, auto&) { view.reset(); };
  });
  view->setSortBlock(byRank<Item>());
  EXPECT_TRUE(gone.expired());
  EXPECT_EQ(base.use_count(), 1);
}

TEST(LiveViewOfPointersTest, elementsThatChangeWhereTheyAre) {
  const auto base = Kerray<SharedItem>::make();
  for (Int key = 0; key < 6; ++key) base->append(makeElement<SharedItem>(key, 10 * key));
  const auto view = ViewOf<SharedItem>::make(base, nullptr, byRank<SharedItem>());
  Listener listener(*view);
  // Two at once: what is not yet announced stands out of order when the first is.
  (*base)[1]->rank = 99;
  (*base)[5]->rank = 1;
  base->appendMultiple(
      std::vector<SharedItem>{makeElement<SharedItem>(7, 15), makeElement<SharedItem>(8, 45)});
  EXPECT_EQ(listener.heard(), "insertedMultipleDistributed[1, 7] 7/15/0 8/45/0");
  base->update((*base)[1]);
  base->update((*base)[5]);
  EXPECT_EQ(contentOf(*view), "[0/0/0, 5/1/0, 7/15/0, 2/20/0, 3/30/0, 4/40/0, 8/45/0, 1/99/0]");
}

TEST(LiveViewOfStrictItemsTest, anUpdateLeavesTheOldContentBesideTheNew) {
  const auto base = Kerray<StrictItem>::make();
  for (Int key = 0; key < 3; ++key) base->append(makeElement<StrictItem>(key, 10 * key, 1));
  const auto view = ViewOf<StrictItem>::make(base);
  view->setFilterBlock([](const StrictItem& item) { return item.group == 1; });
  // Not found, it counts as come to pass.
  base->update(makeElement<StrictItem>(1, 11, 1));
  EXPECT_EQ(contentOf(*view), "[0/0/1, 1/11/1, 1/10/1, 2/20/1]");
  base->removeElementWithKey(1);
  base->append(makeElement<StrictItem>(1, 12, 1));
  EXPECT_TRUE(view->contains(makeElement<StrictItem>(1, 10, 1)));
}

}  // namespace
}  // namespace tolvanite::testing
