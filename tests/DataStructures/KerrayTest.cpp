// What each mutator of a Kerray changes, tells, reports and refuses.
#include <csignal>
#include <set>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Errur = KerrayErrur;

// Equality plays no part in a Kerray, nor does a text form.
struct Plain {
  std::string key;
};
static_assert(KeyedElement<Plain> && !EquatableKeyedElement<Plain> && !HasTextForm<Plain>);
static_assert(EquatableKeyedElement<Item> && EquatableKeyedElement<SharedItem>);
static_assert(std::ranges::random_access_range<ElementArray<Item>>);
static_assert(std::ranges::input_range<Kerray<Item>>);

struct KerrayTest : ::testing::Test {
  static std::vector<Item> items(std::initializer_list<Int> keys, Int rank = 0) {
    std::vector<Item> result;
    for (const Int key : keys) result.push_back({key, rank, 0});
    return result;
  }
  std::vector<Int> keys() const {
    std::vector<Int> result;
    for (const Item& item : *kerray) result.push_back(item.key);
    return result;
  }
  /// What `call` reports, or null.
  static std::optional<Errur> errorOf(const auto& call) {
    try {
      call();
    } catch (const Errur& error) {
      return error;
    }
    return {};
  }

  std::shared_ptr<Kerray<Item>> kerray = Kerray<Item>::make(items({0, 1, 2, 3, 4}));
  Listener listener{*kerray};
};

TEST_F(KerrayTest, insertionsOfPresentElementsAreReported) {
  EXPECT_EQ(errorOf([&] { kerray->insert({3, 9, 9}, 77); }), Errur::elementAlreadyPresent("3/9/9"));
  EXPECT_EQ(errorOf([&] { kerray->append({4, 1, 1}); }), Errur::elementAlreadyPresent("4/1/1"));
  EXPECT_EQ(errorOf([&] { kerray->insertMultiple(items({1, 4}), 9, true); }),
            Errur::elementsAlreadyPresent(2, "1/0/0,4/0/0"));
  EXPECT_EQ(errorOf([&] { kerray->insertMultipleDistributed(items({2}), {99}); }),
            Errur::elementsAlreadyPresent(1, "2/0/0"));
  kerray->insertMultipleDistributed(items({8, 9}), {0, 0, 0});  // in silence
  kerray->appendMultiple({});
  EXPECT_THAT(listener.heard(), IsEmpty());
  EXPECT_THAT(keys(), ElementsAre(0, 1, 2, 3, 4));
  EXPECT_EQ(kerray->array()[3].rank, 0);

  // The rest of a batch is inserted and told before the report.
  EXPECT_EQ(errorOf([&] { kerray->appendMultiple(items({7, 2, 8})); }),
            Errur::elementsAlreadyPresent(1, "2/0/0"));
  EXPECT_EQ(errorOf([&] { kerray->insertMultipleDistributed(items({9, 1, 6}), {0, 5, 2}); }),
            Errur::elementsAlreadyPresent(1, "1/0/0"));
  EXPECT_THAT(keys(), ElementsAre(9, 0, 6, 1, 2, 3, 4, 7, 8));
  EXPECT_THAT(listener.heard(),
              ElementsAre(Change{"insertedMultipleContinuous", {5}, {"7/0/0", "8/0/0"}},
                          Change{"insertedMultipleDistributed", {0, 2}, {"9/0/0", "6/0/0"}}));
}

TEST_F(KerrayTest, eventsThatAreSentForNothing) {
  kerray->update(items({77, 78}));
  kerray->move(std::vector<Int>{}, 5);
  kerray->removeAtIndexes({});
  kerray->remove(ElementArray<Item>());
  kerray->removeAll();
  kerray->removeAll();
  kerray->replaceContent({});
  EXPECT_THAT(listener.heard(),
              ElementsAre(Change{"updatedMultiple"}, Change{"movedMultiple", {}, {}, 5},
                          Change{"removedMultiple"}, Change{"removedMultiple"},
                          Change{"removedAll"}, Change{"removedAll"}, Change{"replacedContent"}));
  kerray->replaceContent(items({0, 1, 2}));
  listener.heard();
  kerray->move(2, 2);
  EXPECT_FALSE(kerray->update(Item{5, 0, 0}).has_value());
  EXPECT_FALSE(kerray->remove(Item{5, 0, 0}).has_value());
  EXPECT_FALSE(kerray->removeElementWithKey(5).has_value());
  EXPECT_FALSE(kerray->removeAtIndex(3).has_value());
  EXPECT_THAT(listener.heard(), IsEmpty());
}

TEST_F(KerrayTest, removalsAndMovesTellHighestFirst) {
  EXPECT_EQ(textForm(kerray->removeAtIndexes({1, 3})), "[3/0/0, 1/0/0]");
  kerray->append({5, 0, 0});
  kerray->move({0, 2}, 1);
  EXPECT_THAT(keys(), ElementsAre(2, 0, 4, 5));
  EXPECT_EQ(textForm(kerray->remove(items({0, 5, 0}))), "[5/0/0, 0/0/0]") << "named twice";
  EXPECT_THAT(listener.heard(), ElementsAre(Change{"removedMultiple", {3, 1}, {"3/0/0", "1/0/0"}},
                                            Change{"inserted", {3}, {"5/0/0"}},
                                            Change{"movedMultiple", {0, 2}, {"4/0/0", "0/0/0"}, 1},
                                            Change{"removedMultiple", {3, 1}, {"5/0/0", "0/0/0"}}));
  kerray->replaceContent(items({0, 1, 2, 3}));
  EXPECT_EQ(textForm(kerray->removeAtIndexes({1, 1})), "[1/0/0, 2/0/0]") << "removes twice";
}

TEST_F(KerrayTest, theUncheckedOnesTrustTheirCallers) {
  kerray->appendWithoutContainsCheck({1, 7, 0});
  EXPECT_THAT(keys(), ElementsAre(0, 1, 2, 3, 4, 1));
  EXPECT_EQ(kerray->elementWithKey(1)->rank, 7);
  EXPECT_EQ(kerray->indexOf({1, 0, 0}), 1);
  kerray->update(Item{6, 0, 0}, 0);
  EXPECT_TRUE(kerray->containsWith(0)) << "the old key stays";
  EXPECT_FALSE(kerray->indexOf({0, 0, 0}).has_value());
  kerray->remove(Item{1, 0, 0});
  EXPECT_FALSE(kerray->containsWith(1));
  EXPECT_EQ(kerray->indexOf({1, 0, 0}), 4) << "found by scanning";
  EXPECT_TRUE(kerray->update(Item{1, 8, 0}).has_value());
  EXPECT_TRUE(kerray->containsWith(1));
}

using KerrayDeathTest = KerrayTest;

TEST_F(KerrayDeathTest, stops) {
  const auto stops = [](const auto& call, const std::string& text) {
    EXPECT_EXIT(call(), ::testing::KilledBySignal(SIGABRT),
                "^Fatal error: " + text + ": file .*, line [0-9]+\n$");
  };
  stops([&] { kerray->move(5, 0); }, "from index 5 out of bounds\\.");
  stops([&] { kerray->move(0, 6); }, "to index 6 out of bounds\\.");
  stops([&] { kerray->move(0, 5); }, "Index 5 out of range, 5 elements");
  stops([&] { kerray->move({0, 1}, 6); }, "to index 6 out of bounds\\.");
  stops([&] { kerray->move({3, 1}, 0); }, "\\[3, 1\\] not in ascending order!");
  stops([&] { kerray->move({1, 1}, 0); }, "\\[1, 1\\] not in ascending order!");
  stops([&] { kerray->move({3, 5}, 0); }, "Index 5 out of range, 5 elements");
  stops([&] { kerray->move({0, 1}, 5); }, "Index 5 .*");
  stops([&] { kerray->remove(items({1, 9})); }, "llll");
  stops([&] { kerray->insert({9, 0, 0}, 6); }, "Index 6 .*");
  stops([&] { kerray->insert({9, 0, 0}, -1); }, "Index -1 .*");
  stops([&] { kerray->update(Item{9, 0, 0}, 5); }, "Index 5 .*");
  stops([&] { kerray->removeAtIndex(-1); }, "Index -1 .*");
  stops([&] { kerray->removeAtIndexes({0, 5}); }, "Index 5 .*");
  stops([&] { kerray->insertMultiple(items({9}), 6); }, "Index 6 .*");
  stops([&] { kerray->insertMultipleDistributed(items({8, 9}), {7, 0}); }, "Index 7 .*");
  stops([&] { static_cast<void>((*kerray)[5]); }, "Index 5 .*");
  kerray->update(Item{9, 0, 0}, 0);
  stops([&] { kerray->removeElementWithKey(0); }, ".*0");  // the key leads to nowhere
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
  EXPECT_THROW(plain->append({"a"}), Errur);
  EXPECT_TRUE(plain->containsWith("a"));
}

TEST_F(KerrayTest, isARangeThatSeesChanges) {
  EXPECT_EQ(std::ranges::count_if(*kerray, [](const Item& item) { return item.key > 2; }), 2);
  std::vector<Int> seen;
  for (auto i = kerray->begin(); i != kerray->end(); ++i) {
    seen.push_back(i->key);
    if (i->key == 1) kerray->removeAtIndex(0);
    if (i->key == 4 && kerray->count() == 4) kerray->append({9, 0, 0});
  }
  EXPECT_THAT(seen, ElementsAre(0, 1, 3, 4, 9));
}

TEST_F(KerrayTest, elementsByPointer) {
  const auto shared = Kerray<SharedItem>::make();
  Listener heard(*shared);
  const auto element = makeElement<SharedItem>(1, 5);
  shared->append(element);
  EXPECT_THROW(shared->append(makeElement<SharedItem>(1)), Errur);
  EXPECT_EQ((*shared)[0], element);
  element->rank = 6;
  shared->update(element);
  EXPECT_EQ(shared->removeElementWithKey(1), element);
  EXPECT_THAT(heard.heard(),
              ElementsAre(Change{"inserted", {0}, {"1/5/0"}}, Change{"updated", {0}, {"1/6/0"}},
                          Change{"removed", {0}, {"1/6/0"}}));
  EXPECT_EQ(element.use_count(), 1) << "nothing is kept";
}

TEST_F(KerrayTest, nestedChangesAreToldToTheLaterOnesFirst) {
  Texts heard;
  OwnerToken owner;
  for (const std::string name : {"a", "b"}) {
    kerray->observers.createNew(owner, [&](KerrayObserver<Item>& observer) {
      observer.inserted = [&, name](Kerray<Item>&, Int index, const Item& item) {
        heard.push_back(name + textForm(item.key) + "@" + textForm(index));
        EXPECT_TRUE(kerray->contains(item)) << "changed before it is told";
        if (name == "a" && item.key < 12) kerray->insert({item.key + 1, 0, 0}, 0);
      };
    });
  }
  kerray->insert({10, 0, 0}, 2);
  EXPECT_EQ(heard, (Texts{"a10@2", "a11@0", "a12@0", "b12@0", "b11@0", "b10@2"}));
}

// The arguments of an event stay what they are, whatever becomes of the elements meanwhile.
TEST_F(KerrayTest, argumentsOutliveNestedChanges) {
  OwnerToken owner;
  bool isNested = false;
  kerray->observers.createNew(owner, [&](KerrayObserver<Item>& observer) {
    hearAll(observer, [&](const Change& change) {
      if (std::exchange(isNested, true) || change.event == "removedAll") return;
      kerray->update(Item{7, 77, 7});
      kerray->updateWithKey(7, [](Item& item) { item.rank = 78; });
      kerray->removeAll();
      kerray->append({7, 79, 0});
    });
  });
  Listener last(*kerray);
  const auto lastOf = [&](const auto& call) {
    isNested = true;
    kerray->replaceContent(items({1, 7, 2}));
    isNested = false;
    call();
    return last.heard().back();
  };
  EXPECT_EQ(lastOf([&] { kerray->update(Item{7, 1, 1}); }), (Change{"updated", {1}, {"7/1/1"}}));
  EXPECT_EQ(lastOf([&] { EXPECT_EQ(kerray->update(Item{7, 2, 1}, 1).rank, 2); }),
            (Change{"updated", {1}, {"7/2/1"}}));
  EXPECT_EQ(lastOf([&] { kerray->updateWithKey(7, [](Item& item) { item.rank = 3; }); }),
            (Change{"updated", {1}, {"7/3/0"}}));
  EXPECT_EQ(lastOf([&] { kerray->move(1, 0); }), (Change{"moved", {1}, {"7/0/0"}, 0}));
  EXPECT_EQ(lastOf([&] { kerray->move({0, 1}, 1); }),
            (Change{"movedMultiple", {0, 1}, {"7/0/0", "1/0/0"}, 1}));
  EXPECT_EQ(lastOf([&] { EXPECT_EQ(kerray->removeAtIndexes({1, 2})[1].rank, 0); }),
            (Change{"removedMultiple", {2, 1}, {"2/0/0", "7/0/0"}}));
  EXPECT_EQ(lastOf([&] { EXPECT_EQ(textForm(kerray->update(items({2, 7}, 4)))[1], '2'); }),
            (Change{"updatedMultiple", {2, 1}, {"2/4/0", "7/4/0"}}));
  EXPECT_EQ(lastOf([&] { kerray->insertMultiple(items({5, 6}), 1); }),
            (Change{"insertedMultipleContinuous", {1}, {"5/0/0", "6/0/0"}}));
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

  kerray->append({1, 1, 0});
  const ElementArray<Item> before = kerray->array();
  kerray->update(Item{1, 2, 0});
  kerray->updateWithKey(1, [](Item& item) { item.rank = 3; });
  kerray->append({2, 0, 0});
  EXPECT_EQ(textForm(before), "[1/1/0]") << "a copy keeps the content as it is";
}

TEST_F(KerrayTest, anExceptionFromABlockLeavesAtOnce) {
  OwnerToken owner;
  kerray->observers.createNew(owner, [](KerrayObserver<Item>& observer) {
    hearAll(observer, [](const Change& change) { throw std::runtime_error(change.event); });
  });
  Listener later(*kerray);
  EXPECT_THROW(kerray->appendMultiple(items({9, 1})), std::runtime_error) << "not the Errur";
  EXPECT_THROW(kerray->remove(Item{0, 0, 0}), std::runtime_error);
  EXPECT_THROW(kerray->move(0, 4), std::runtime_error);
  EXPECT_THAT(keys(), ElementsAre(2, 3, 4, 9, 1));
  EXPECT_TRUE(kerray->containsWith(9));
  EXPECT_FALSE(kerray->containsWith(0));
  EXPECT_EQ(kerray->indexOf({1, 0, 0}), 4);
  EXPECT_EQ(listener.heard().size(), 3u);
  EXPECT_THAT(later.heard(), IsEmpty());
}

TEST_F(KerrayTest, theLastReferenceMayGoInsideOfAnObserver) {
  auto doomed = Kerray<Item>::make(items({1, 2}));
  OwnerToken owner;
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
}

}  // namespace
}  // namespace tolvanite::testing
