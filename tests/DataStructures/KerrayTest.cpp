// What each mutator of a Kerray tells, reports and refuses.
#include <csignal>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::testing {
namespace {

// Equality plays no part in a Kerray, nor does a text form.
struct Plain {
  std::string key;
};
static_assert(KeyedElement<Plain> && !EquatableKeyedElement<Plain> && !HasTextForm<Plain>);
static_assert(EquatableKeyedElement<Item> && EquatableKeyedElement<SharedItem>);
static_assert(std::ranges::random_access_range<ElementArray<Item>>);
static_assert(std::ranges::input_range<Kerray<Item>>);

struct KerrayTest : ::testing::Test {
  static std::vector<Item> items(std::initializer_list<Int> keys) {
    std::vector<Item> result;
    for (const Int key : keys) result.push_back({key, 0, 0});
    return result;
  }
  std::string keys() const {
    std::string result;
    for (const Item& item : *kerray) result += textForm(item.key);
    return result;
  }
  static void setRank(Item& item) { item.rank = 5; }

  std::shared_ptr<Kerray<Item>> kerray = Kerray<Item>::make(items({0, 1, 2, 3, 4}));
  Listener listener{*kerray};
  OwnerToken owner;
};

TEST_F(KerrayTest, theRestOfABatchIsInsertedBeforeTheReport) {
  const auto expectErrur = [](const KerrayErrur& expected, const auto& call) {
    try {
      call();
      ADD_FAILURE() << expected.text;
    } catch (const KerrayErrur& error) {
      EXPECT_EQ(error, expected);
    }
  };
  using Errur = KerrayErrur;
  expectErrur(Errur::elementAlreadyPresent("3/9/9"), [&] { kerray->insert({3, 9, 9}, 77); });
  expectErrur(Errur::elementsAlreadyPresent(2, "1/0/0,4/0/0"),
              [&] { kerray->insertMultiple(items({1, 4}), 9); });
  kerray->insertMultipleDistributed(items({8, 9}), {0, 0, 0});  // in silence
  EXPECT_EQ(listener.heard(), "");
  expectErrur(Errur::elementsAlreadyPresent(1, "1/0/0"),
              [&] { kerray->insertMultipleDistributed(items({9, 1, 6}), {0, 5, 2}); });
  EXPECT_EQ(listener.heard(), "insertedMultipleDistributed[0, 2] 9/0/0 6/0/0");
  EXPECT_EQ(keys(), "9061234");
}

TEST_F(KerrayTest, eventsThatAreSentForNothing) {
  kerray->update(items({77, 78}));
  kerray->move(Indexes{}, 5);
  kerray->removeAtIndexes({});
  kerray->remove(ElementArray<Item>());
  kerray->removeAll();
  kerray->removeAll();
  kerray->replaceContent({});
  EXPECT_EQ(listener.heard(),
            "updatedMultiple; movedMultiple>5; removedMultiple; removedMultiple; removedAll; "
            "removedAll; replacedContent");
  kerray->replaceContent(items({0, 1, 2, 3}));
  EXPECT_EQ(textForm(kerray->removeAtIndexes({1, 1})), "[1/0/0, 2/0/0]") << "removes twice";
}

TEST_F(KerrayTest, updateWithKeyInPlaceAndShared) {
  const auto* const box = kerray->elementWithKey(3);
  EXPECT_FALSE(kerray->updateWithKey(9, setRank));
  EXPECT_TRUE(kerray->updateWithKey(3, setRank));
  EXPECT_EQ(kerray->elementWithKey(3), box) << "nobody else holds it";
  EXPECT_EQ(&(*kerray)[3], box);
  {
    const ElementArray<Item> copy = kerray->array();
    kerray->updateWithKey(2, setRank);
    EXPECT_EQ(textForm(copy), "[0/0/0, 1/0/0, 2/0/0, 3/5/0, 4/0/0]") << "keeps what it has";
  }
  const auto view = OptionallyFilteredOptionallySortedArray_BasedOnKerray<Item>::make(
      kerray, nullptr,
      NamedSortBlock<Item>{"rank", [](const Item& a, const Item& b) { return a.rank < b.rank; }});
  Listener ofView(*view);
  kerray->updateWithKey(0, setRank);
  EXPECT_EQ(ofView.heard(), "moved[0]>2 0/5/0; updated[2] 0/5/0");
  EXPECT_EQ(listener.heard(), "updated[3] 3/5/0; updated[2] 2/5/0; updated[0] 0/5/0");
  EXPECT_EQ(kerray->elementWithKey(0), &(*kerray)[0]);
  EXPECT_THROW(kerray->updateWithKey(1, [](Item&) { throw 1; }), int);
  EXPECT_EQ(listener.heard() + ofView.heard(), "");
}

using KerrayDeathTest = KerrayTest;

TEST_F(KerrayDeathTest, stops) {
  const auto stops = [](const auto& call, const std::string& text) {
    EXPECT_EXIT(call(), ::testing::KilledBySignal(SIGABRT),
                "^Fatal error: " + text + ": file .*, line [0-9]+\n$");
  };
  const auto range = [](Int index, Int count = 5) {
    return "Index " + textForm(index) + " out of range, " + textForm(count) + " elements";
  };
  stops([&] { kerray->move(5, 0); }, "from index 5 out of bounds\\.");
  stops([&] { kerray->move(0, 6); }, "to index 6 out of bounds\\.");
  stops([&] { kerray->move(0, 5); }, range(5));
  stops([&] { kerray->move({0, 1}, 6); }, "to index 6 out of bounds\\.");
  stops([&] { kerray->move({3, 1}, 0); }, "\\[3, 1\\] not in ascending order!");
  stops([&] { kerray->move({1, 1}, 0); }, "\\[1, 1\\] not in ascending order!");
  stops([&] { kerray->move({3, 5}, 0); }, range(5));
  stops([&] { kerray->move({0, 1}, 5); }, "Index 5 .*");
  stops([&] { kerray->remove(items({1, 9})); }, "llll");
  stops([&] { kerray->insert({9, 0, 0}, 6); }, "Index 6 .*");
  stops([&] { kerray->insert({9, 0, 0}, -1); }, "Index -1 .*");
  stops([&] { kerray->update(Item{9, 0, 0}, 5); }, range(5));
  stops([&] { kerray->removeAtIndex(-1); }, range(-1));
  stops([&] { kerray->removeAtIndexes({0, 5}); }, "Index 5 .*");
  stops([&] { kerray->insertMultiple(items({9}), 6); }, "Index 6 .*");
  stops([&] { kerray->insertMultipleDistributed(items({8, 9}), {7, 0}); }, "Index 7 .*");
  stops([&] { static_cast<void>((*kerray)[5]); }, range(5));

  const std::string changedKey =
      "A change to an element in its place must leave its key and its Kerray as they are";
  const auto changeKey = [&] { kerray->updateWithKey(1, [](Item& item) { item.key = 9; }); };
  stops(changeKey, changedKey);
  stops([&] { kerray->updateWithKey(1, [&](Item&) { kerray->append({9, 0, 0}); }); }, changedKey);
  const ElementArray<Item> copy = kerray->array();
  stops(changeKey, changedKey);
  stops([&] { kerray->updateWithKey(1, [&](Item&) { kerray->removeElementWithKey(1); }); },
        changedKey);

  kerray->update(Item{9, 0, 0}, 0);
  stops([&] { kerray->removeElementWithKey(0); },
        "A key leads to an element that is not in the array: 0");
}

TEST_F(KerrayTest, descriptions) {
  EXPECT_EQ(kerray->description(), "OrderedSet(count: 5, elements: <not CustomStringConvertible>)");
  EXPECT_EQ(kerray->description2(),
            "OrderedSet(count: 5, elements: 0/0/0, 1/0/0, 2/0/0, 3/0/0, 4/0/0)");
  kerray->append({5, 0, 0});
  EXPECT_EQ(kerray->description2(),
            "OrderedSet(count: 6, elements: 0/0/0, 1/0/0, 2/0/0, 3/0/0, 4/0/0, ...)");
  kerray->removeAll();
  EXPECT_EQ(kerray->description(), "OrderedSet(count: 0, elements: <none>)");
  EXPECT_EQ(kerray->description2(), kerray->description());
  const auto plain = Kerray<Plain>::make({Plain{"a"}});
  EXPECT_THROW(plain->append({"a"}), KerrayErrur);
}

TEST_F(KerrayTest, isARangeThatSeesChanges) {
  Indexes seen;
  for (auto i = kerray->begin(); i != kerray->end(); ++i) {
    seen.push_back(i->key);
    if (i->key == 1) kerray->removeAtIndex(0);
    if (i->key == 4 && kerray->count() == 4) kerray->append({9, 0, 0});
  }
  EXPECT_EQ(seen, (Indexes{0, 1, 3, 4, 9}));
}

// The arguments of an event stay what they are, whatever becomes of the elements meanwhile.
TEST_F(KerrayTest, argumentsOutliveNestedChanges) {
  Block<void()> nested;
  kerray->observers.createNew(owner, [&](KerrayObserver<Item>& observer) {
    hearAll(observer, [&](const Change&) {
      if (const auto run = std::exchange(nested, nullptr)) run();
    });
  });
  Listener last(*kerray);
  const auto removal = [&] { EXPECT_EQ(kerray->removeElementWithKey(7)->key, 7); };
  const auto everything = [&] {
    kerray->update(Item{7, 77, 7});
    kerray->updateWithKey(7, [](Item& item) { item.rank = 78; });
    kerray->removeAll();
    kerray->append({7, 79, 0});
  };
  using Call = Block<void()>;
  const std::pair<Call, std::string> rows[] = {
      {[&] { EXPECT_EQ(kerray->update(Item{7, 1, 1})->rank, 1); }, "updated[1] 7/1/1"},
      {[&] { EXPECT_EQ(kerray->update(Item{7, 2, 1}, 1).rank, 2); }, "updated[1] 7/2/1"},
      {[&] { kerray->updateWithKey(7, setRank); }, "updated[1] 7/5/0"},
      {[&] { kerray->updateWithKey(7, [copy = kerray->array()](Item& item) { setRank(item); }); },
       "updated[1] 7/5/0"},
      {[&] { kerray->move(1, 0); }, "moved[1]>0 7/0/0"},
      {[&] { kerray->move({0, 1}, 1); }, "movedMultiple[0, 1]>1 7/0/0 1/0/0"},
      {[&] { kerray->update(items({2, 7})); }, "updatedMultiple[2, 1] 2/0/0 7/0/0"},
      {[&] { kerray->insertMultiple(items({5, 6}), 1); },
       "insertedMultipleContinuous[1] 5/0/0 6/0/0"},
      {[&] { EXPECT_EQ(kerray->removeAtIndexes({0, 2})[1].key, 1); },
       "removedMultiple[2, 0] 2/0/0 1/0/0"}};
  for (const Call& block : {Call(removal), Call(everything)}) {
    for (const auto& [call, told] : rows) {
      kerray->replaceContent(items({1, 7, 2}));
      nested = block;
      call();
      EXPECT_EQ(textForm(last.changes.back()), told);
    }
  }
}

TEST_F(KerrayTest, aBlockMayReplaceItselfWhileItRuns) {
  std::shared_ptr<KerrayObserver<Item>> observer = kerray->observers.createNew(owner);
  std::string heard;
  const std::string text = "is long enough to live in the block's own memory";
  observer->inserted = [&observer, &heard, text](auto&, Int, const Item& item) {
    observer->inserted = nullptr;
    heard += item.description() + " " + text;
  };
  kerray->append({5, 0, 0});
  kerray->append({6, 0, 0});
  EXPECT_EQ(heard, "5/0/0 " + text);
}

TEST_F(KerrayTest, argumentsMayLiveInTheKerray) {
  for (Int i = 0; i < 300; ++i) kerray->append({10 + i, 0, 0});
  const auto last = [&]() -> const Item& { return kerray->array().back(); };
  EXPECT_EQ(kerray->update(last())->key, 309);
  EXPECT_EQ(kerray->remove(last())->key, 309);
  EXPECT_EQ(kerray->removeElementWithKey(last().key)->key, 308);
  EXPECT_EQ(kerray->update(last(), 302).key, 307);
  kerray->insertWithoutContainsCheck(last(), 0);
  kerray->insertMultiple(kerray->array(), 2, false);
  EXPECT_EQ(kerray->count(), 2 * 304);
  EXPECT_EQ(kerray->update(kerray->array()).count(), 608);
  kerray->replaceContent(items({1, 2, 3}));
  kerray->replaceContent(kerray->array());
  EXPECT_EQ(kerray->update(kerray->array()).count(), 3);
  EXPECT_EQ(kerray->remove(kerray->array()).count(), 3);
}

TEST_F(KerrayTest, anExceptionFromABlockLeavesAtOnce) {
  kerray->observers.createNew(owner, [](KerrayObserver<Item>& observer) {
    hearAll(observer, [](const Change& change) { throw std::runtime_error(change.event); });
  });
  Listener later(*kerray);
  EXPECT_THROW(kerray->appendMultiple(items({9, 1})), std::runtime_error) << "not the Errur";
  EXPECT_THROW(kerray->remove(Item{0, 0, 0}), std::runtime_error);
  EXPECT_THROW(kerray->updateWithKey(2, setRank), std::runtime_error);
  EXPECT_THROW(kerray->move(0, 4), std::runtime_error);
  EXPECT_EQ(keys(), "23491");
  EXPECT_TRUE(kerray->containsWith(9) && !kerray->containsWith(0));
  EXPECT_EQ(kerray->indexOf({1, 0, 0}), 4);
  EXPECT_EQ(listener.changes.size(), 4u);
  EXPECT_EQ(later.heard(), "");
}

TEST_F(KerrayTest, theLastReferenceMayGoInsideOfAnObserver) {
  auto doomed = Kerray<Item>::make(items({1, 2}));
  int calls = 0;
  for (int i = 0; i < 2; ++i) {
    doomed->observers.createNew(owner, [&](KerrayObserver<Item>& observer) {
      observer.updated = [&](Kerray<Item>& self, Int index, const Item& item) {
        doomed.reset();
        EXPECT_EQ(self[index].rank, item.rank);
        ++calls;
      };
    });
  }
  Kerray<Item>& kept = *doomed;
  EXPECT_EQ(kept.update(Item{2, 5, 0})->rank, 5);
  EXPECT_EQ(calls, 2);

  const auto element = makeElement<SharedItem>(1);
  const auto shared = Kerray<SharedItem>::make({element});
  shared->update(element);
  EXPECT_EQ(shared->removeElementWithKey(1), element);
  EXPECT_EQ(element.use_count(), 1) << "nothing is kept";
}

}  // namespace
}  // namespace tolvanite::testing
