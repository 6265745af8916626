// What the arrays that are values and the sorted one do at their edges and under re-entry.
#include <csignal>
#include <typeindex>

#include <gtest/gtest.h>

#include <Tolvanite/DataStructures/OptionallySortedUrray.h>
#include <Tolvanite/DataStructures/Serray.h>
#include <Tolvanite/DataStructures/Urray.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::testing {
namespace {

using Items = std::vector<Item>;
using SortedUrray = OptionallySortedUrray<Item>;
using Order = NamedSortBlock<Item>;
const Order byRank{"rank", [](const Item& a, const Item& b) { return a.rank < b.rank; }};

template <typename E>
std::string errorOf(const auto& call) {
  try {
    return call(), "none";
  } catch (const E& error) {
    return error.description() + "|" + error.text;
  }
}
void expectStop(const auto& call, const std::string& text) {
  EXPECT_EXIT(call(), ::testing::KilledBySignal(SIGABRT),
              "^Fatal error: " + text + ": file .*, line [0-9]+\n$");
}

// Values stand in an optional, so that they can be ended.
template <typename Holder>
struct ArraysTest : ::testing::Test {
  void SetUp() override {
    if constexpr (requires { holder.emplace(); }) holder.emplace();
    if constexpr (requires { holder->removeWith(0); }) holder = Serray<Item>::make();
    for (const Int key : {1, 2, 3}) insert({key, 0, 0});
  }
  void insert(const Item& item) {
    if constexpr (requires { holder->append(item); }) holder->append(item);
    if constexpr (requires { holder->insert(item); }) holder->insert(item);
  }
  Holder holder;
};
using Holders = ::testing::Types<std::optional<Urray<Item>>, std::optional<SortedUrray>,
                                 std::shared_ptr<Serray<Item>>>;
TYPED_TEST_SUITE(ArraysTest, Holders);

TYPED_TEST(ArraysTest, aBlockMayEndTheArrayAndOwnersAndSubscribe) {
  const Block<Optional<Item>()> calls[] = {
      [&] { return this->insert({9, 0, 0}), Optional<Item>(); },
      [&] { return Optional<Item>(this->holder->update({2, 7, 0})); },
      [&] { return Optional<Item>(this->holder->remove((*this->holder)[1])); },
      [&] { return this->holder->removeAll(), Optional<Item>(); }};
  for (const auto& call : calls) {
    this->SetUp();
    Texts heard;
    OwnerToken owner;
    auto doomed = std::make_shared<int>();
    std::optional<Listener> late;
    const auto listen = [&](const Owner& of, const Block<void(const Change&)>& block) {
      this->holder->observers.createNew(of, [&](auto& observer) { hearAll(observer, block); });
    };
    listen(owner, [&](const Change&) {
      late.emplace(*this->holder);
      doomed = nullptr;
      this->holder.reset();
      heard.push_back("first");
    });
    listen(doomed, [&](const Change&) { heard.push_back("dead"); });
    listen(owner, [&](const Change&) { heard.push_back("last"); });
    EXPECT_EQ(call().value_or(Item{2, 0, 0}).key, 2);
    EXPECT_EQ(heard, (Texts{"first", "last"}));
    EXPECT_EQ(late->heard(), "");
  }
}

// Where the content of an array or set stands in memory.
const void* placeOf(const ElementArray<Item>& array) {
  struct Peek : ElementArray<Item> {
    static const void* at(const ElementArray& one) { return (one.*&Peek::content_).get(); }
  };
  return Peek::at(array);
}
const void* placeOf(const ElementSet<Item>& set) {
  struct Peek : ElementSet<Item> {
    static const void* at(const ElementSet& one) { return (one.*&Peek::table_).slots().data(); }
  };
  return Peek::at(set);
}

TEST(UrrayTest, onlyWhatACopyHoldsIsCopied) {
  Urray<Item> urray;
  Listener listener(urray);
  urray.insert(Items{{1, 0, 0}, {2, 0, 0}}, 0);
  const auto places = [&] { return std::pair(placeOf(urray.array()), placeOf(urray.keys())); };
  const auto change = [&] {
    urray.append({3, 0, 0});
    urray.update({1, 5, 0});
    urray.move(0, 1);
    urray.remove({3, 0, 0});
  };
  const auto before = places();
  change();
  EXPECT_EQ(places(), before);
  const Urray<Item> copy = urray;
  change();
  EXPECT_TRUE(places().first != before.first && places().second != before.second);
  EXPECT_EQ(textsOf(copy), (Texts{"2/0/0", "1/5/0"}));
}

TEST(UrrayTest, edges) {
  Urray<Item> urray;
  Listener listener(urray);
  urray.append({1, 0, 0});
  EXPECT_EQ(errorOf<OrderedSetErrors>([&] { urray.insert(Items{{2, 0, 0}, {1, 9, 0}}, 0); }),
            "Element already present: 1/9/0|1/9/0");
  urray.update({1, 5, 0});
  EXPECT_EQ(urray.keys().find({1, 0, 0})->rank, 5);
  EXPECT_FALSE(urray.remove({4, 0, 0}) || urray.removeElementAtIndex(2) || urray.atIndex(2));
  expectStop([&] { urray.move(2, 2); }, "from index 2 out of bounds\\.");
  expectStop([&] { urray.move(0, 2); }, "to index 2 out of bounds\\.");
  EXPECT_EQ(listener.heard(), "inserted[0] 1/0/0; inserted[0] 2/0/0; updated[1] 1/5/0");
  // A copy tells the same observers. What a block makes of the copy that it is handed stays there.
  urray.observers.createNew(listener.owner, [](UrrayObserver<Item>& observer) {
    observer.inserted = [](Urray<Item> handed, Int index, const Item& item) {
      if (index < 5) handed.append({item.key + 1, 0, 0});
    };
  });
  Urray<Item> copy = urray;
  copy.append({3, 0, 0});
  EXPECT_EQ(listener.heard(),
            "inserted[2] 3/0/0; inserted[3] 4/0/0; inserted[4] 5/0/0; inserted[5] 6/0/0");
  std::ostringstream out;
  out << copy << urray << Urray<Item>();
  EXPECT_EQ(out.str(),
            "OrderedSet(count: 3, elements: 2/0/0, 1/5/0, 3/0/0)"
            "OrderedSet(count: 2, elements: 2/0/0, 1/5/0)OrderedSet(count: 0, elements: <none>)");
  EXPECT_TRUE(copy == Urray(copy) && copy != urray);
  Urray<SharedItem> pointers[2];
  for (auto& one : pointers) one.append(makeElement<SharedItem>(1));
  EXPECT_EQ(pointers[0], pointers[1]);
  Urray<std::type_index> mute;
  mute.append(typeid(int));
  EXPECT_EQ(textForm(mute), "OrderedSet(count: 1, elements: <not CustomStringConvertible>)");
}

TEST(OptionallySortedUrrayTest, edges) {
  SortedUrray urray;
  Listener listener(urray);
  urray.append(Items{{1, 3, 0}, {2, 2, 0}, {3, 1, 0}});
  urray.setSortBlock(byRank);
  listener.heard();
  urray.moveFromIndex(9, 9);
  const auto move = [&](Int from, Int to) {
    return errorOf<ArrayErrors>([&] { urray.moveFromIndex(from, to); });
  };
  EXPECT_EQ(move(-1, 3), "Index out of bounds: fromIndex -1|fromIndex -1");
  EXPECT_EQ(move(1, 3), "Index out of bounds: toIndex 3|toIndex 3");
  expectStop([&] { move(0, 1); }, "move only allowed, when not sorted\\. Currently sorted by rank");
  EXPECT_EQ(errorOf<ArrayErrors>([&] { urray.append({1, 0, 0}); }),
            "Element already present: 1/0/0|1/0/0");
  urray.update({1, 0, 0});
  for (const Int key : {4, 5, 6}) urray.append({key, key, 0});
  EXPECT_EQ(urray.description(),
            "OptionallySortedUrray(sortBlock:rank, count: 6, elements: "
            "1/0/0, 3/1/0, 2/2/0, 4/4/0, 5/5/0, ...)");
  urray.setSortBlock({});
  EXPECT_EQ(urray.elementWithKey(1)->rank, 3) << "keeps the old one";
  EXPECT_EQ(listener.heard(),
            "updated[0] 1/0/0; moved[2]>0 1/0/0; inserted[3] 4/4/0; "
            "inserted[4] 5/5/0; inserted[5] 6/6/0; sortingChanged none");
  // A sort block that throws finds everything as it was.
  urray.setSortBlock(
      Order{"throws", [](const Item&, const Item& b) { return b.key == 8 ? throw 1 : false; }});
  const SortedUrray before = urray;
  EXPECT_THROW(urray.append({8, 0, 0}), int);
  EXPECT_EQ(urray, before);
}

TEST(SerrayTest, edges) {
  struct Silent {
    Int key;
  };
  const auto silent = Serray<Silent>::make();
  for (const Int key : {3, 1, 6, 5, 4, 2}) silent->insert({key});
  EXPECT_EQ(textForm(*silent), "Serray(count: 6, elements: <not CustomStringConvertible>)");
  auto serray = Serray<Item>::make();
  Listener listener(*serray);
  serray->setSortBlock(serray->sortBlock());
  EXPECT_EQ(errorOf<SerrayErrur>([&] { serray->insert(Items{{1, 3, 0}, {1, 0, 0}, {9, 0, 0}}); }),
            "Element already present:1/0/0|1/0/0");
  EXPECT_EQ(SerrayErrur::indexOutOfBounds("9").description(), "Index out of bounds:9");
  EXPECT_EQ(listener.heard(), "sortingChanged default; inserted[0] 1/3/0");
  for (const Int key : {2, 3, 4, 5}) serray->insert({key, 0, 0});
  EXPECT_EQ(textForm(*serray), "Serray(count: 5, elements: 1/3/0, 2/0/0, 3/0/0, 4/0/0, 5/0/0)");
  serray->insert({6, 6, 0});
  EXPECT_EQ(textForm(*serray), "Serray(count: 6, elements: , ...)");
  expectStop([&] { serray->setSortBlock({"x", {}}); }, "The sort order \"x\" has no block");
  // The last reference goes in the middle of a batch.
  listener.heard();
  hearAll(*serray->observers.createNew(listener.owner), [&](const Change&) { serray.reset(); });
  serray->insert(Items{{7, 0, 0}, {8, 0, 0}});
  EXPECT_EQ(listener.heard(), "inserted[6] 7/0/0; inserted[7] 8/0/0");
}

TEST(SerrayTest, blocksThatAreNoStrictOrder) {
  Random random(1);
  const Order orders[] = {byRank.reversed(),
                          {"any", [&](auto&, auto&) { return random() % 2 == 0; }}};
  for (const Order& order : orders) {
    const auto serray = Serray<Item>::make();
    serray->setSortBlock(order);
    Listener listener(*serray);
    Texts copy;
    for (int i = 0; i < 1000; ++i) {
      const Item item{draw(random, 40), draw(random, 5), 0};
      draw(random, 3) == 0 ? serray->remove(item) : serray->update(item);
      replayAll(std::exchange(listener.changes, {}), copy, *serray);
      ASSERT_EQ(copy, textsOf(*serray));
      ASSERT_TRUE(!order.reverse ||
                  std::ranges::is_sorted(*serray, std::ranges::greater(), &Item::rank));
    }
  }
}

TEST(PlacedArrayTest, insertsABatchLikeOneAfterTheOther) {
  Random random(1);
  for (int round = 0; round < 400; ++round) {
    const auto order = (round % 2 == 0 ? byRank : byRank.reversed()).sortBlock;
    detail::PlacedArray<Item> array;
    detail::PlacedArray<Item> expected;
    for (int i = 0; i < 2; ++i) {
      Items items(static_cast<std::size_t>(draw(random, 40)));
      for (Item& item : items) item = {draw(random, 1000), draw(random, 6), 0};
      const detail::ElementStore<Item> batch(items);
      Indexes indexes;
      for (Int k = 0; k < batch.count(); ++k) {
        indexes.push_back(expected.insertInOrder(batch.handleAt(k), order));
      }
      EXPECT_EQ(array.insertInOrder(batch, order), indexes);
      ASSERT_EQ(textsOf(array.elements()), textsOf(expected.elements())) << round;
    }
  }
}

}  // namespace
}  // namespace tolvanite::testing
