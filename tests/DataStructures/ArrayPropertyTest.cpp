// Random operations on the unique, the optionally sorted and the sorted array, and on copies made
// in the middle of everything, compared with a naive model after each.
#include <gtest/gtest.h>

#include <Tolvanite/DataStructures/OptionallySortedUrray.h>
#include <Tolvanite/DataStructures/Serray.h>
#include <Tolvanite/DataStructures/Urray.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::testing {
namespace {

enum class Kind { unique, optionallySorted, sorted };

// Arrays, or models of them, that are copied to one another and tell the same two observers. The
// first changes arrays again, the second notes what it is handed at updates.
template <typename T, Kind kind, typename Array>
struct Side {
  void hear(const Change& change) {
    heard.push_back(change);
    if (nested.empty()) return;
    const Random random = nested.back();
    nested.pop_back();
    heard.push_back({"gave " + step(random)});
  }
  void see(const auto& array) { heard.push_back({"saw", {}, textsOf(array)}); }
  /// A copy, or one mutator with arguments drawn at random; the result or the error as text.
  std::string step(Random random) {
    const auto& from = slots[random() % slots.size()];
    const auto& to = slots[random() % slots.size()];
    if constexpr (kind != Kind::sorted) {
      if (draw(random, 6) == 0 && from != to) return *to = *from, "copied";
    }
    try {
      return change(*to, random);
    } catch (const Error& error) {
      return error.description();
    }
  }
  std::string change(Array& array, Random& random) {
    std::vector<T> batch;
    for (int i = 0; i < 3; ++i) {
      const Item item{draw(random, keys), draw(random, 5), draw(random, 3)};
      batch.push_back(makeElement<T>(item.key, item.rank, item.group));
    }
    const T& one = batch[0];
    const Int n = array.count();
    const Int from = draw(random, n);
    const Int at = draw(random, 3) > 0 ? draw(random, n + 1) : n;
    const auto insert = [&](const auto& what) {
      if constexpr (kind == Kind::sorted) array.insert(what);
      if constexpr (kind != Kind::sorted) array.insert(what, at);
    };
    const Int which = draw(random, 16);
    // What nests may leave less than the running index of a batch.
    if (which == 0 && (kind != Kind::unique || nested.empty())) return insert(batch), "";
    if (which < 6) return insert(one), "";
    if (which < 10) return textForm(array.update(one));
    if (which < 12) return textForm(array.remove(one));
    if (which == 12 && draw(random, keys) == 0) return array.removeAll(), "";
    if constexpr (kind == Kind::unique) {
      if (at < n) array.move(from, at);
    } else {
      using Order = NamedSortBlock<T>;
      const Order byRank{"rank", [](auto& a, auto& b) { return itemOf(a).rank < itemOf(b).rank; }};
      const auto byGroup = [](auto& a, auto& b) { return itemOf(a).group > itemOf(b).group; };
      // The last passes for the first: stored, it sorts everything at the next update, unheard.
      const Optional<Order> orders[] = {{}, byRank, {{"group", byGroup}}, {{"rank", byGroup}}};
      if constexpr (kind == Kind::sorted) {
        array.setSortBlock(*orders[1 + draw(random, 3)]);
      } else if (which < 14) {
        if (at == n || !array.sortBlock()) array.move(from, at);
      } else {
        array.setSortBlock(orders[draw(random, slots.size() > 1 ? 4 : 3)]);
      }
    }
    return "";
  }

  Int keys;
  std::vector<std::shared_ptr<Array>> slots = {};
  Changes heard = {};
  std::vector<Random> nested = {};
};

template <typename T, Kind kind>
struct Model {
  using Array = std::vector<T>;
  static constexpr bool isReference = kind == Kind::sorted;

  Side<T, kind, Model>* side = nullptr;
  Array natural = {};
  Array shown = {};
  Optional<NamedSortBlock<T>> order = {};

  const auto& sortBlock() const { return order; }
  Int count() const { return static_cast<Int>(shown.size()); }
  static Int find(const Array& array, const T& element) {
    const auto key = [](const T& one) { return itemOf(one).key; };
    const auto found = std::ranges::find(array, key(element), key);
    return found == array.end() ? -1 : found - array.begin();
  }
  static T takeOut(Array& array, Int index) {
    const T element = array[static_cast<std::size_t>(index)];
    array.erase(array.begin() + index);
    return element;
  }
  void tell(const Changes& changes) {
    const Array then = shown;
    for (const Change& change : changes) side->hear(change);
    if (changes[0].event == "updated") side->see(isReference ? shown : then);
  }

  void insert(const T& element, Int at = 0) {
    const std::string text = (isReference ? "" : " ") + textForm(element);
    if (find(shown, element) >= 0) throw Error("Element already present:" + text);
    natural.insert(natural.begin() + at, element);
    if (order) at = insertionIndexInSortedArray(shown, *order, element);
    shown.insert(shown.begin() + at, element);
    tell({{"inserted", {at}, {textForm(element)}}});
  }
  void insert(const Array& elements, Int at = 0) {
    for (const T& element : elements) insert(element, kind == Kind::unique ? at++ : count());
  }
  std::optional<T> update(const T& element) {
    const Int index = find(shown, element);
    if (index < 0 && kind != Kind::unique) insert(element, count());
    if (index < 0) return {};
    const T old = std::exchange(shown[static_cast<std::size_t>(index)], element);
    if (order) std::ranges::stable_sort(shown, order->sortBlock);
    if (!order) natural = shown;
    const Int to = find(shown, element);
    const Change updated{"updated", {to}, {textForm(element)}};
    const Change moved{"moved", {index}, {textForm(element)}, to};
    if (to == index) tell({updated});
    if (to != index) tell(isReference ? Changes{moved} : Changes{updated, moved});
    return kind == Kind::unique ? element : old;
  }
  void move(Int from, Int to) {
    if (kind == Kind::optionallySorted && from == to) return;
    if (to == count()) throw Error("Index out of bounds: toIndex " + textForm(to));
    const T element = takeOut(shown, from);
    shown.insert(shown.begin() + to, element);
    natural = shown;
    tell({{"moved", {from}, {textForm(element)}, to}});
  }
  std::optional<T> remove(const T& element) {
    const Int index = find(shown, element);
    if (index < 0) return {};
    const Int inNatural = find(natural, element);
    takeOut(natural, inNatural);
    T old = takeOut(shown, index);
    tell({{"removed", {index}, {textForm(old)}, kind == Kind::optionallySorted ? inNatural : -1}});
    return old;
  }
  void removeAll() {
    natural = shown = {};
    tell({{"removedAll"}});
  }
  void setSortBlock(const Optional<NamedSortBlock<T>>& block) {
    if (std::exchange(order, block) == block && !isReference) return;
    if (!order) shown = natural;
    if (order) std::ranges::stable_sort(shown, order->sortBlock);
    tell({{"sortingChanged", {}, {order ? order->code : "none"}}});
  }
};

/// Under the names of the others.
template <typename T>
struct OptionallySorted : OptionallySortedUrray<T> {
  void insert(const T& element, Int at) { this->insertAtIndex(element, at); }
  void insert(const std::vector<T>& elements, Int /*at*/) { this->append(elements); }
  void move(Int from, Int to) { this->moveFromIndex(from, to); }
};

template <typename T, Kind kind, typename Array>
void run(const std::shared_ptr<Array>& array, int copies, Int keys, bool nests) {
  if (::testing::Test::HasFailure()) return;
  Side<T, kind, Model<T, kind>> model{keys};
  Side<T, kind, Array> real{keys, {array}};
  OwnerToken owner;
  hearAll(*array->observers.createNew(owner), [&](const Change& change) { real.hear(change); });
  array->observers.createNew(owner)->updated = [&](auto& handed, Int, auto&) { real.see(handed); };
  for (int i = 0; i <= copies; ++i) {
    model.slots.push_back(std::make_shared<Model<T, kind>>(&model));
    if constexpr (kind == Kind::sorted) model.slots[0]->order = array->sortBlock();
    if constexpr (kind != Kind::sorted) real.slots.push_back(std::make_shared<Array>(*array));
  }
  real.slots.resize(model.slots.size());

  Random random(1);
  Texts copy;
  for (int step = 0; step < 2000; ++step) {
    const Random now(random());
    if (nests) real.nested = {Random(random()), Random(random()), Random(random())};
    model.nested = real.nested;
    EXPECT_EQ(real.step(now), model.step(now));
    Changes heard = std::exchange(real.heard, {});
    EXPECT_EQ(heard, std::exchange(model.heard, {}));
    const T any = makeElement<T>(draw(random, keys));
    for (std::size_t i = 0; i < real.slots.size(); ++i) {
      const Array& found = *real.slots[i];
      const auto& [side, natural, shown, order] = *model.slots[i];
      EXPECT_EQ(textsOf(found), textsOf(shown));
      EXPECT_EQ(found.indexOf(any).value_or(-1), model.slots[i]->find(shown, any));
      if constexpr (kind == Kind::optionallySorted) {
        EXPECT_EQ(textsOf(found.naturallySortedArray()), textsOf(natural));
      }
    }
    if (copies == 0 && !nests) {
      std::erase_if(heard, [](const Change& change) { return change.event == "saw"; });
      replayAll(heard, copy, *array);
      EXPECT_EQ(copy, textsOf(*array)) << "the events alone must tell the content";
    }
    ASSERT_FALSE(::testing::Test::HasFailure()) << "step " << step;
  }
}

template <typename T>
void runAll() {
  for (const auto& [copies, keys, nests] :
       {std::tuple(0, 20, false), {0, 900, false}, {0, 20, true}, {2, 20, true}}) {
    if (copies == 0) run<T, Kind::sorted>(Serray<T>::make(), 0, keys, nests);
    run<T, Kind::unique>(std::make_shared<Urray<T>>(), copies, keys, nests);
    run<T, Kind::optionallySorted>(std::make_shared<OptionallySorted<T>>(), copies, keys, nests);
  }
}

TEST(ArrayPropertyTest, elementsByValue) { runAll<Item>(); }
TEST(ArrayPropertyTest, elementsByPointer) { runAll<SharedItem>(); }

}  // namespace
}  // namespace tolvanite::testing
