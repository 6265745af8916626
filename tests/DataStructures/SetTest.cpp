// What the sets and the views on them tell, print, refuse and survive.
#include <csignal>

#include <gtest/gtest.h>

#include <Tolvanite/DataStructures/FilterSet.h>
#include <Tolvanite/DataStructures/OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet.h>
#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnKerray.h>
#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnObservableSet.h>

#include "tests/DataStructures/Items.h"
#include "tests/Support/CapturedOutput.h"
#include "tests/Support/ScriptedRandom.h"

namespace tolvanite::testing {
namespace {

using Items = std::vector<Item>;
using Base = ObservableSet<Item>;
using FilteredView = OptionallyFilteredSet_BasedOnObservableSet<Item>;
using SortedView = OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<Item>;
using KerrayView = OptionallyFilteredSet_BasedOnKerray<Item>;
static_assert(std::ranges::forward_range<Base> && std::ranges::forward_range<FilterSet<Item>>);
static_assert(std::ranges::forward_range<FilteredView> && std::ranges::forward_range<KerrayView>);
static_assert(std::ranges::random_access_range<SortedView> && std::copyable<FilterSet<Item>>);

const NamedSortBlock<Item> byRank{"rank", [](auto& a, auto& b) { return a.rank < b.rank; }};
bool isGrouped(const Item& item) { return item.group != 0; }
std::string sortedText(const auto& elements) {
  std::string text;
  for (const auto& one : sortedTextsOf(elements)) text += (text.empty() ? "" : ", ") + one;
  return text;
}

/// An operation by its name: the result or the error as text. What ends in "s" takes a sequence.
std::string apply(auto& set, const std::string& operation, const Items& items) {
  try {
    if (operation == "insert") return set.insert(items[0]), "";
    if (operation == "update") return textForm(set.update(items[0]));
    if (operation == "remove") return textForm(set.remove(items[0]));
    if (operation == "replaceContents") return set.replaceContent(items), "";
    if (operation == "removeAll") return set.removeAll(), "";
    if constexpr (requires { set.filterBlock(); }) {
      if (operation == "inserts") return set.insert(items), "";
      if (operation == "unfilter") return set.setFilterBlock(nullptr), "";
    } else {
      if (operation == "inserts") return set.insertMultiple(items), "";
      if (operation == "updates") return textForm(set.updateMultiple(items));
      if (operation == "removes") return textForm(set.remove(items));
    }
  } catch (const SetErrur& errur) {
    const bool isOne = errur.errorCase == SetErrur::Case::elementAlreadyPresent;
    return (isOne ? "present " : "all present ") + errur.text;
  }
  return "no such operation";
}

TEST(SetTest, anObservableSetToTheLetter) {
  const std::string absent = "WARNING! Element to remove not present: 9/0/0\n";
  struct Row {
    std::string operation;
    Items items;
    std::string result;
    std::string heard;
    std::string lines;
  };
  const Row rows[] = {
      {"insert", {{9, 0, 0}}, "", "inserted 9/0/0", "🍌 inserted 9/0/0\n"},
      {"insert", {{1, 7, 7}}, "present 1/7/7", "", ""},
      {"inserts", {}, "", "insertedMultiple", "🍌 inserted []\n"},
      {"inserts",
       {{9, 0, 0}, {1, 7, 7}, {9, 1, 1}},
       "all present 1/7/7,9/1/1",
       "insertedMultiple 9/0/0 1/7/7 9/1/1",
       "🍌 inserted [9/0/0, 1/7/7, 9/1/1]\n🍌 alreadyExisting [1/7/7, 9/1/1]\n"},
      {"update", {{1, 7, 7}}, "1/0/1", "updated 1/7/7", "🍌 updated 1/7/7\n"},
      {"update", {{9, 0, 0}}, "nil", "inserted 9/0/0", "🍌 inserted 9/0/0\n"},
      {"updates",
       {{9, 0, 0}, {1, 7, 7}, {1, 8, 8}},
       "[nil, 1/0/1, 1/7/7]",
       "inserted 9/0/0; updatedMultiple 1/7/7 9/0/0",
       "warning: could not find old element\n🍌 inserted 9/0/0\n🍌 updated 9/0/0\n"},
      {"replaceContents",
       {{1, 1, 1}},
       "",
       "replacedContent; replacedContentOldContent 1/0/1 2/1/0",
       "🍌 replacedContent[OldContent]\n"},
      {"removeAll", {}, "", "removedAll", "🍌 removedAll\n"},
      {"remove", {{1, 7, 7}}, "1/0/1", "removed 1/7/7", "🍌 remove 1/7/7\n"},
      {"remove", {{9, 0, 0}}, "nil", "", absent},
      {"removes",
       {{1, 7, 7}, {9, 0, 0}},
       "[1/0/1]",
       "removedMultiple 1/0/1",
       "🍌 remove 1/7/7\n" + absent},
      {"removes", {{9, 0, 0}}, "[]", "removedMultiple", absent}};
  for (const auto& [operation, items, result, heard, lines] : rows) {
    for (const bool logs : {true, false}) {
      const auto set = Base::make(Items{{1, 0, 1}, {2, 1, 0}, {1, 5, 5}});
      set->logDelegateCalls = logs;
      Listener listener(*set);
      auto captured = std::make_unique<CapturedOutput>();
      const std::string answer = apply(*set, operation, items);
      const std::string printed = captured->text();
      captured.reset();
      EXPECT_EQ(answer, result);
      EXPECT_EQ(listener.heard(), heard);
      EXPECT_EQ(printed, logs ? lines : withoutLines("🍌", lines));
    }
  }
}

TEST(SetTest, aFilterSetToTheLetter) {
  struct Row {
    std::string operation;
    Items items;
    std::string result;
    std::string heard;  // by each of two observers before the next
    std::string in;
    std::string out;
  };
  const Row rows[] = {
      {"insert", {{3, 0, 1}}, "", "inSetInserted; inserted", "1/0/1, 3/0/1", "2/0/0"},
      {"insert", {{3, 0, 0}}, "", "outSetInserted; inserted", "1/0/1", "2/0/0, 3/0/0"},
      {"insert", {{1, 5, 5}}, "present 1/5/5", "", "1/0/1", "2/0/0"},
      // Only the side where it belongs is tested.
      {"insert", {{2, 5, 5}}, "", "inSetInserted; inserted", "1/0/1, 2/5/5", "2/0/0"},
      {"inserts",
       {{3, 0, 1}, {1, 5, 1}, {4, 0, 1}},
       "present 1/5/1",
       "inSetInserted; inserted",
       "1/0/1, 3/0/1",
       "2/0/0"},
      {"update", {{1, 5, 5}}, "1/0/1", "inSetUpdated; updated", "1/5/5", "2/0/0"},
      {"update", {{1, 5, 0}}, "1/0/1", "inSetRemoved; outSetInserted; updated", "", "1/5/0, 2/0/0"},
      {"update", {{2, 5, 5}}, "2/0/0", "outSetRemoved; inSetInserted; updated", "1/0/1, 2/5/5", ""},
      {"update", {{2, 5, 0}}, "2/0/0", "outSetUpdated; updated", "1/0/1", "2/5/0"},
      {"update", {{3, 0, 0}}, "nil", "outSetInserted; inserted", "1/0/1", "2/0/0, 3/0/0"},
      {"remove", {{1, 5, 0}}, "1/0/1", "inSetRemoved; removed", "", "2/0/0"},
      {"remove", {{2, 5, 5}}, "2/0/0", "outSetRemoved; removed", "1/0/1", ""},
      {"remove", {{9, 0, 0}}, "nil", "", "1/0/1", "2/0/0"},
      {"removeAll", {}, "", "removedAll", "", ""},
      {"replaceContents", {{4, 0, 0}, {4, 1, 1}}, "", "replacedContent", "4/1/1", "4/0/0"},
      {"unfilter", {}, "", "filterBlockChanged", "1/0/1, 2/0/0", ""}};
  for (const auto& [operation, items, result, heard, in, out] : rows) {
    FilterSet<Item> set;
    set.setFilterBlock(isGrouped);
    set.insert(Items{{1, 0, 1}, {2, 0, 0}});
    OwnerToken owner;
    std::string told;
    for (int i = 0; i < 2; ++i) {
      set.observers.createNew(owner, [&](auto& observer) {
        hearAll(observer, [&](const Change& change) {
          told.append(told.empty() ? "" : "; ").append(change.event);
          for (const auto& element : change.elements) {
            EXPECT_EQ(element, textForm(items[operation == "inserts" ? 0 : items.size() - 1]));
          }
        });
      });
    }
    EXPECT_EQ(apply(set, operation, items), result);
    EXPECT_EQ(told, heard.empty() ? "" : heard + "; " + heard) << operation;
    EXPECT_EQ(sortedText(set.inElements()), in);
    EXPECT_EQ(sortedText(set.outElements()), out);
  }
}

TEST(SetTest, aFilterSetIsAValue) {
  FilterSet<Item> set;
  set.setFilterBlock(isGrouped);
  set.insert(Items{{1, 0, 1}, {2, 0, 0}});
  Listener listener(set);
  OwnerToken owner;
  set.observers.createNew(owner)->updated = [&](const FilterSet<Item>& received, const Item&) {
    FilterSet<Item> own = received;
    own.observers = {};
    own.removeAll();
    EXPECT_EQ(received.count(), 2);
  };
  set.update({1, 5, 1});
  EXPECT_EQ(listener.heard(), "inSetUpdated 1/5/1; updated 1/5/1");
  FilterSet<Item> copy = set;
  copy.remove({1, 0, 0});
  EXPECT_EQ(listener.heard(), "inSetRemoved 1/0/0; removed 1/0/0") << "the same observers";
  EXPECT_EQ(textForm(copy) + textForm(set), "FilterSet(in 0, out 1)FilterSet(in 1, out 1)");
  set.insert({3, 0, 1});
  const test::ScriptedRandom random({1, 0});
  EXPECT_NE(set.randomInElement(), set.randomInElement());
  EXPECT_EQ(random.bounds, (std::vector<std::uint32_t>{2, 2}));
  EXPECT_FALSE(copy.randomInElement().has_value()) << "nothing is drawn";
}

// Without a copy alive a mutation copies neither an element nor the table.
TEST(SetTest, nothingIsCopiedButForCopies) {
  const auto check = [](auto& set, const auto& elements) {
    for (Int key = 0; key < 100; ++key) set.insert({key, 0, 1});
    const auto table = elements().begin();
    const Item* const box = &*table;
    const Int other = box->key == 50 ? 51 : 50;
    set.update({other, 1, 1});
    set.remove({other, 0, 0});
    set.insert({other, 0, 1});
    EXPECT_EQ(elements().begin(), table);
    const ElementSet<Item> copy = elements();
    set.remove({other, 0, 0});
    EXPECT_NE(elements().begin(), table);
    EXPECT_EQ(copy.count(), 100);
    EXPECT_EQ(set.find(*box), box);
  };
  const auto set = Base::make();
  check(*set, [&]() -> auto& { return set->elements(); });
  FilterSet<Item> filtered;
  const Listener listener(filtered);
  check(filtered, [&]() -> auto& { return filtered.inElements(); });
}

struct ViewsOfSetsTest : ::testing::Test {
  std::shared_ptr<Base> set = Base::make(Items{{1, 10, 1}, {2, 20, 0}, {3, 30, 1}});
  std::shared_ptr<Kerray<Item>> kerray = Kerray<Item>::make(Items{{1, 10, 1}, {2, 20, 0}});
  OwnerToken owner;
};

TEST_F(ViewsOfSetsTest, describeThemselves) {
  const auto view = FilteredView::make(set, isGrouped);
  const auto sorted = SortedView::make(set, byRank);
  const auto keyed = KerrayView::make(kerray, isGrouped);
  EXPECT_THROW(view->insert(Items{{4, 40, 0}, {1, 0, 0}, {5, 0, 0}}), SetErrur);
  const std::string name = "OptionallyFilteredSet_BasedOnObservableSet(";
  EXPECT_EQ(textForm(*view), name + "in count 2, total count 4)");
  EXPECT_EQ(textForm(*keyed) + textForm(*set), "FilterSet(in 1 of total 2)ObservableSet(count=4)");
  const std::string sortedName = "OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet";
  EXPECT_EQ(textForm(*sorted),
            sortedName + "(sortBlock:rank, count: 4, elements: 1/10/1, 2/20/0, 3/30/1, 4/40/0)");
  set->insertMultiple(Items{{5, 50, 0}, {6, 60, 0}});
  EXPECT_TRUE(textForm(*sorted).ends_with(", 5/50/0, ...)"));
  // Without a filter there are no elements of its own, but for those after `removedAll`.
  view->setFilterBlock(nullptr);
  EXPECT_EQ(textForm(*view), name + "NO FILTER, total count 6)");
  EXPECT_FALSE(view->inElements().has_value());
  set->removeAll();
  EXPECT_TRUE(view->inElements().has_value());
  set->replaceContent({});
  EXPECT_FALSE(view->inElements().has_value());
  EXPECT_EQ(textForm(*sorted), sortedName + "(sortBlock:rank, count: 0, elements: <none>)");
}

TEST_F(ViewsOfSetsTest, noOrderAtAllIsNoHarm) {
  Random random(7);
  const auto view =
      SortedView::make(set, {"none", [&](const Item&, const Item&) { return random() % 2 == 0; }});
  for (int i = 0; i < 1000; ++i) {
    const Item item{draw(random, 60), 0, 0};
    if (i % 3 == 0 && set->contains(item)) set->remove(item);
    if (i % 3 != 0) set->update(item);
    if (i % 100 == 0) view->setSortBlock({std::to_string(i), view->sortBlock().sortBlock});
    EXPECT_EQ(sortedText(*view), sortedText(*set));
  }
}

using ViewsOfSetsDeathTest = ViewsOfSetsTest;

TEST_F(ViewsOfSetsDeathTest, stop) {
  const auto stops = [](const auto& call, const std::string& text) {
    EXPECT_EXIT(call(), ::testing::KilledBySignal(SIGABRT),
                "^Fatal error: " + text + ": file .*, line [0-9]+\n$");
  };
  auto filtered = FilteredView::make(set);
  stops([&] { set->updateMultiple(Items{}); }, "llll");
  filtered.reset();
  auto sorted = SortedView::make(set, isGrouped, byRank);
  stops([&] { set->updateMultiple(Items{}); }, "llll");
  stops([&] { static_cast<void>((*sorted)[2]); }, "Index 2 out of range, 2 elements");
  sorted.reset();
  EXPECT_EQ(set->updateMultiple(Items{{1, 0, 0}}).size(), 1U) << "no view is left";
  set->observers.createNew(owner)->updated = [&](auto&, const Item& item) { set->remove(item); };
  sorted = SortedView::make(set, byRank);
  stops([&] { set->update({1, 0, 0}); }, "Element of the base not found in its view: 1/0/0");
}

// The last references to a view and to its base go in a block of the view's own observer.
TEST_F(ViewsOfSetsTest, mayBeLetGoInTheirBlocks) {
  const auto check = [&](auto base, const auto& makeView, const auto& change) {
    auto view = makeView(base);
    const std::weak_ptr<const void> weakBase = base;
    const std::weak_ptr<const void> weakView = view;
    int calls = 0;
    for (int i = 0; i < 2; ++i) {
      view->observers.createNew(owner, [&](auto& observer) {
        hearAll(observer, [&](const Change&) {
          view.reset();
          base.reset();
          ++calls;
        });
      });
    }
    change(*base, *view);
    EXPECT_GE(calls, 2);
    EXPECT_TRUE(weakView.expired() && weakBase.expired());
  };
  const Items items{{1, 99, 1}, {2, 0, 1}};
  const auto checkSets = [&](const auto& makeView) {
    for (const std::string change : {"update", "inserts", "replaceContents", "remove", "removes"}) {
      check(Base::make(Items{{1, 10, 1}, {2, 20, 0}}), makeView,
            [&](auto& base, auto&) { apply(base, change, items); });
    }
    check(Base::make(items), makeView, [](auto&, auto& view) { view.setFilterBlock(isGrouped); });
    check(Base::make(), makeView, [&](auto& base, auto&) { base.insert(items[0]); });
  };
  checkSets([](auto& base) { return FilteredView::make(base); });
  checkSets([](auto& base) { return FilteredView::make(base, isGrouped); });
  checkSets([](auto& base) { return SortedView::make(base, byRank); });
  const auto makeView = [](auto& base) { return KerrayView::make(base, isGrouped); };
  check(Kerray<Item>::make(items), makeView, [&](auto& base, auto&) { base.update(items); });
  // The view is the last to hold its base, and goes between two insertions.
  auto view = FilteredView::make(std::exchange(set, nullptr));
  Listener listener(*view);
  view->observers.createNew(owner)->inserted = [&](auto&, auto&) { view.reset(); };
  view->insert(Items{{4, 0, 0}, {5, 0, 0}});
  EXPECT_EQ(listener.heard(), "inserted 4/0/0");
}

TEST_F(ViewsOfSetsTest, aBaseMayBeLetGoBetweenItsEvents) {
  const CapturedOutput warnings;
  const std::pair<std::string, std::string> rows[] = {
      {"replaceContents", "replacedContent; replacedContentOldContent 1/10/1 2/20/0 3/30/1"},
      {"updates", "inserted 4/0/0; inserted 5/0/0; updatedMultiple 4/0/0 5/0/0"}};
  for (const auto& [operation, heard] : rows) {
    auto base = Base::make(set->elements());
    Listener listener(*base);
    base->observers.createNew(
        owner, [&](auto& observer) { hearAll(observer, [&](const Change&) { base.reset(); }); });
    apply(*base, operation, {{4, 0, 0}, {5, 0, 0}});
    EXPECT_EQ(listener.heard(), heard);
  }
}

TEST_F(ViewsOfSetsTest, argumentsMayLiveInTheViews) {
  const auto view = FilteredView::make(set, isGrouped);
  const auto sorted = SortedView::make(set, byRank);
  Listener last(*set);
  Listener ofView(*view);
  set->update({1, 11, 1});
  EXPECT_EQ(textForm(set->remove(*view->find({1}))), "1/11/1");
  EXPECT_THROW(set->insertMultiple(Items{{2, 2, 2}}), SetErrur);
  EXPECT_EQ(textForm(set->remove((*sorted)[0])), "2/20/0");
  EXPECT_EQ(last.heard(), "updated 1/11/1; removed 1/10/1; insertedMultiple 2/2/2; removed 2/2/2");
  EXPECT_EQ(ofView.changes[1], (Change{"removed", {}, {"1/10/1"}}));
}

TEST_F(ViewsOfSetsTest, filtersMayThrowAskAndChange) {
  const auto view = FilteredView::make(set);
  const auto sorted = SortedView::make(set, byRank);
  const auto keyed = KerrayView::make(kerray);
  const auto fails = [](const Item& item) { return item.key == 1 ? throw item.key : true; };
  EXPECT_THROW(view->setFilterBlock(fails), Int);
  EXPECT_THROW(sorted->setFilterBlock(fails), Int);
  EXPECT_THROW(keyed->setFilterBlock(fails), Int);
  EXPECT_EQ(view->count() + sorted->count() + keyed->count(), 3 + 3 + 2) << "as they were";
  view->setFilterBlock([&](const Item&) { return view->count() == 3; });
  EXPECT_EQ(view->count(), 3);

  FilterSet<Item> filtered;
  int calls = 0;
  filtered.setFilterBlock([&](const Item& item) {
    ++calls;
    if (item.rank == 5) filtered.remove(item);
    return true;
  });
  filtered.update({1, 0, 0});
  filtered.update({1, 5, 0});
  EXPECT_EQ(calls, 2);
}

// Three deep, with an owner that dies in the pass and with subscriptions for the next one.
TEST_F(ViewsOfSetsTest, passesOverObservers) {
  const auto view = SortedView::make(set, byRank);
  Texts heard;
  auto dying = std::make_shared<int>();
  view->observers.createNew(owner)->inserted = [&](SortedView& self, Int index, const Item& item) {
    dying.reset();
    if (item.key < 6) set->insert({item.key + 1, item.rank - 1, 0});
    heard.push_back(textForm(index) + " " + textForm(self[index]));
    self.observers.createNew(owner)->removed = [&](auto&, Int, auto&) { heard.push_back("late"); };
  };
  view->observers.createNew(dying)->inserted = [&](auto&, Int, auto&) { heard.push_back("dead"); };
  Listener last(*view);
  set->insert({4, 9, 0});
  set->remove({4, 0, 0});
  EXPECT_EQ(heard, (Texts{"0 6/7/0", "0 6/7/0", "0 6/7/0", "late", "late", "late"}));
  EXPECT_EQ(last.heard(),
            "inserted[0] 6/7/0; inserted[0] 5/8/0; inserted[0] 4/9/0; removed[2] 4/0/0");
}

}  // namespace
}  // namespace tolvanite::testing
