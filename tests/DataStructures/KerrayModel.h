// The keyed array once more, written for obviousness, and a runner that puts it and the views on it
// beside the real ones. Whatever ends the process there throws `Fatal` here.
#pragma once

#include <map>
#include <tuple>

#include <gtest/gtest.h>

#include "tests/DataStructures/LiveViewModel.h"

namespace tolvanite::testing {

template <typename T>
std::string randomStep(auto& kerray, Random random);

template <typename T>
struct KerrayModel {
  using Array = std::vector<T>;

  Array content;
  std::map<Int, T> dictionary;
  std::vector<ViewModel<T>> views;
  Changes first;  // heard before the views
  Changes last;   // heard after them
  std::vector<Random> nestedBefore;
  std::vector<Random> nestedAfter;

  const Array& array() const { return content; }
  Int count() const { return static_cast<Int>(content.size()); }
  static Int keyOf(const T& element) { return itemOf(element).key; }
  Int indexOf(const T& element) const {
    for (Int i = 0; i < count(); ++i) {
      if (keyOf(at(i)) == keyOf(element)) return i;
    }
    return -1;
  }
  bool contains(const T& element) const { return dictionary.contains(keyOf(element)); }
  const T& at(Int index) const {
    require(index >= 0 && index < count());
    return content[static_cast<std::size_t>(index)];
  }

  void tell(const ChangeOf<T>& event) {
    const Change change{event.event, event.indexes, textsOf(event.elements), event.to};
    first.push_back(change);
    runOne(nestedBefore);
    for (auto& view : views) view.hear(content, event);
    last.push_back(change);
    runOne(nestedAfter);
  }
  void runOne(std::vector<Random>& nested) {
    if (nested.empty()) return;
    const Random random = nested.back();
    nested.pop_back();
    randomStep<T>(*this, random);
  }

  void place(const T& element, Int index) {
    require(index >= 0 && index <= count());
    content.insert(content.begin() + index, element);
    dictionary[keyOf(element)] = element;
  }
  T takeOut(Int index) {
    const T element = at(index);
    content.erase(content.begin() + index);
    return element;
  }

  void append(const T& element) { insert(element, count()); }
  void insert(const T& element, Int index) {
    if (contains(element)) throw KerrayErrur::elementAlreadyPresent(textForm(element));
    insertWithoutContainsCheck(element, index);
  }
  void appendWithoutContainsCheck(const T& e) { insertWithoutContainsCheck(e, count()); }
  void insertWithoutContainsCheck(const T& element, Int index) {
    place(element, index);
    tell({"inserted", {index}, {element}});
  }
  void appendMultiple(const Array& elements) { insertMultiple(elements, count(), true); }
  void insertMultiple(const Array& elements, Int index, bool test) {
    insertEach(elements, Indexes(elements.size(), index), test, true);
  }
  void insertMultipleDistributed(const Array& elements, const Indexes& indexes, bool test) {
    if (elements.size() == indexes.size()) insertEach(elements, indexes, test, false);
  }
  void insertEach(const Array& elements, const Indexes& indexes, bool test, bool isContinuous) {
    ChangeOf<T> event{isContinuous ? "insertedMultipleContinuous" : "insertedMultipleDistributed"};
    std::string present;
    Int presentCount = 0;
    for (std::size_t i = 0; i < elements.size(); ++i) {
      if (test && contains(elements[i])) {
        present += (presentCount++ == 0 ? "" : ",") + textForm(elements[i]);
      } else {
        const auto before = static_cast<Int>(event.elements.size());
        event.indexes.push_back(indexes[i] + (isContinuous ? before : 0));
        event.elements.push_back(elements[i]);
      }
    }
    for (std::size_t i = 0; i < event.elements.size(); ++i) {
      place(event.elements[i], event.indexes[i]);
    }
    if (isContinuous) event.indexes.resize(std::min<std::size_t>(1, event.indexes.size()));
    if (!event.elements.empty()) tell(event);
    if (presentCount > 0) throw KerrayErrur::elementsAlreadyPresent(presentCount, present);
  }

  std::optional<T> update(const T& element) {
    const Int index = indexOf(element);
    if (index < 0) return {};
    return update(element, index);
  }
  T update(const T& element, Int index) {
    store(element, index);
    tell({"updated", {index}, {element}});
    return element;
  }
  void store(const T& element, Int index) {
    static_cast<void>(at(index));
    content[static_cast<std::size_t>(index)] = element;
    dictionary[keyOf(element)] = element;
  }
  Array update(const Array& elements) {
    Indexes indexes;
    Array updated;
    for (const T& element : elements) {
      const Int index = indexOf(element);
      if (index < 0) continue;
      store(element, index);
      indexes.push_back(index);
      updated.push_back(element);
    }
    tell({"updatedMultiple", indexes, updated});
    return updated;
  }
  bool updateWithKey(Int key, const auto& change) {
    const Int index = indexOf(makeElement<T>(key));
    if (index < 0) return false;
    T element = at(index);
    change(element);
    update(element, index);
    return true;
  }

  void move(Int from, Int to) {
    require(from < count() && to <= count());
    if (from == to) return;
    const T element = takeOut(from);
    require(to >= 0 && to <= count());
    content.insert(content.begin() + to, element);
    tell({"moved", {from}, {element}, to});
  }
  void move(const Indexes& from, Int to) {
    require(to <= count() &&
            std::ranges::adjacent_find(from, std::ranges::greater_equal()) == from.end());
    Array moved;
    for (const Int index : from | std::views::reverse) moved.push_back(takeOut(index));
    require(to >= 0 && to <= count());
    for (const T& element : moved) content.insert(content.begin() + to, element);
    tell({"movedMultiple", from, moved, to});
  }

  void replaceContent(const Array& elements) {
    content = elements;
    dictionary.clear();
    for (const T& element : content) dictionary[keyOf(element)] = element;
    tell({"replacedContent"});
  }
  void removeAll() {
    content.clear();
    dictionary.clear();
    tell({"removedAll"});
  }
  std::optional<T> removeAtIndex(Int index) {
    if (index >= count()) return {};
    const T element = takeOut(index);
    dictionary.erase(keyOf(element));
    tell({"removed", {index}, {element}});
    return element;
  }
  std::optional<T> remove(const T& element) {
    if (!contains(element)) return {};
    require(indexOf(element) >= 0);
    return removeAtIndex(indexOf(element));
  }
  std::optional<T> removeElementWithKey(Int key) {
    const auto found = dictionary.find(key);
    return found == dictionary.end() ? std::nullopt : remove(T(found->second));
  }
  Array remove(const Array& elements) {
    Indexes indexes;
    for (const T& element : elements) indexes.push_back(indexOf(element));
    require(std::ranges::count(indexes, -1) == 0);
    // An element that is named twice is removed once.
    std::ranges::sort(indexes);
    indexes.erase(std::ranges::unique(indexes).begin(), indexes.end());
    return removeAtIndexes(indexes);
  }
  Array removeAtIndexes(Indexes indexes) {
    std::ranges::sort(indexes, std::ranges::greater());
    Array removed;
    for (const Int index : indexes) removed.push_back(takeOut(index));
    for (const T& element : removed) dictionary.erase(keyOf(element));
    tell({"removedMultiple", indexes, removed});
    return removed;
  }
};

/// One mutator with arguments drawn at random; the same generator state makes the same call on the
/// model and on the real thing. Gives the result or the error as text.
template <typename T>
std::string randomStep(auto& kerray, Random random) {
  const Int n = kerray.count();
  const bool isTrusting = draw(random, 40) == 0;  // now and then the caller breaks the trust
  const bool isFar = draw(random, 4) == 0;
  const auto index = [&] { return draw(random, n); };
  const auto element = [&](bool isPresent) {
    const Int key = isPresent && n > 0
                        ? itemOf(kerray.array()[static_cast<std::size_t>(index())]).key
                        : draw(random, 3 * n / 2 + 20);
    return makeElement<T>(key, draw(random, 9), draw(random, 4));
  };
  const auto elements = [&](bool arePresent) {
    std::vector<T> result;
    for (Int i = draw(random, draw(random, 12) == 0 ? 60 : 5); i >= 0; --i) {
      const T one = element(arePresent);
      // A batch repeats keys only where the caller breaks the trust.
      const auto isOne = [&](const T& other) { return itemOf(other).key == itemOf(one).key; };
      if (isTrusting || std::ranges::none_of(result, isOne)) result.push_back(one);
    }
    return result;
  };
  const auto indexes = [&](Int below) {
    Indexes result;
    for (Int i = draw(random, draw(random, 8) == 0 ? 40 : 5); i > 0; --i) {
      result.push_back(draw(random, below));
    }
    if (!isTrusting) {
      std::ranges::sort(result);
      result.erase(std::ranges::unique(result).begin(), result.end());
    }
    return result;
  };
  const T any = element(false);
  const T known = element(true);
  const Int knownKey = itemOf(known).key;
  const Int at = isFar ? draw(random, n + 1) : n;
  const Int which = draw(random, 30);
  try {
    if (which < 3) return kerray.append(any), "";
    if (which < 5) return kerray.insert(any, at), "";
    if (which < 6) return isTrusting ? (kerray.appendWithoutContainsCheck(any), "") : "";
    if (which < 7) return isTrusting ? (kerray.insertWithoutContainsCheck(known, at), "") : "";
    if (which < 8) return kerray.appendMultiple(elements(false)), "";
    if (which < 9) return kerray.insertMultiple(elements(false), at, !isTrusting), "";
    if (which < 11) {
      const auto batch = elements(false);
      Indexes places;
      for (std::size_t i = 0; i < batch.size(); ++i) places.push_back(draw(random, n + 1));
      if (isFar) std::ranges::sort(places);
      return kerray.insertMultipleDistributed(batch, places, !isTrusting), "";
    }
    if (which < 16) return textForm(kerray.update(known));
    if (which < 17) return textForm(isTrusting ? kerray.update(known, index()) : any);
    if (which < 18) return textForm(kerray.update(elements(isFar)));
    if (which < 20) {
      return textForm(kerray.updateWithKey(knownKey, [&](T& changed) {
        changed = makeElement<T>(knownKey, itemOf(any).rank, itemOf(changed).group);
      }));
    }
    if (which < 21) return kerray.move(index(), at), "";
    if (which < 22) {
      const auto from = indexes(n);
      return kerray.move(from, draw(random, n - static_cast<Int>(from.size()) + 1)), "";
    }
    if (which < 23) return isFar && isTrusting ? (kerray.replaceContent(elements(false)), "") : "";
    if (which < 24) return isFar && isTrusting && n < 200 ? (kerray.removeAll(), "") : "";
    if (which < 25) return textForm(kerray.removeElementWithKey(knownKey));
    if (which < 26) return textForm(kerray.remove(isFar ? known : any));
    if (which < 27) return textForm(kerray.removeAtIndex(isFar ? index() : draw(random, n + 2)));
    if (which < 28) return textForm(kerray.remove(elements(true)));
    return textForm(kerray.removeAtIndexes(indexes(n)));
  } catch (const KerrayErrur& error) {
    return error.description() + " " + textForm(error.count) + " " + error.text;
  }
}

/// The real thing beside its model, both with a listener before and one behind their views. They
/// take the same random steps and are compared after each.
template <typename T>
struct Pair {
  using View = OptionallyFilteredOptionallySortedArray_BasedOnKerray<T>;
  struct Real {
    std::shared_ptr<View> view;
    std::unique_ptr<Listener> listener;
    Texts copy;
  };

  explicit Pair(std::vector<ViewModel<T>> views) {
    model.views = std::move(views);
    listen(first, nestedBefore);
    for (const auto& view : model.views) {
      auto real = View::make(kerray, view.filter, Optional<NamedSortBlock<T>>(view.sort));
      reals.push_back({real, std::make_unique<Listener>(*real), {}});
    }
    listen(last, nestedAfter);
  }
  void listen(Changes& changes, std::vector<Random>& nested) {
    kerray->observers.createNew(owner, [&](auto& observer) {
      hearAll(observer, [&](const Change& change) {
        changes.push_back(change);
        if (nested.empty()) return;
        const Random random = nested.back();
        nested.pop_back();
        randomStep<T>(*kerray, random);
      });
    });
  }

  /// Takes a step that does not end the process; false if this one would.
  bool step(const auto& step) {
    KerrayModel<T> trial = model;
    std::string expected;
    try {
      expected = step(trial);
    } catch (Fatal) {
      return false;
    }
    model = std::move(trial);
    EXPECT_EQ(step(*kerray), expected);
    return true;
  }
  void nest(const std::vector<Random>& before, const std::vector<Random>& after) {
    nests = true;
    model.nestedBefore = nestedBefore = before;
    model.nestedAfter = nestedAfter = after;
  }

  bool randomlyStep(Random& random) {
    const Random now(random());
    return step([&](auto& target) { return randomStep<T>(target, now); });
  }

  static bool isSameContent(const auto& real, const std::vector<T>& expected) {
    const auto content = [](const T& element) {
      return std::tuple(itemOf(element).key, itemOf(element).rank, itemOf(element).group);
    };
    return std::ranges::equal(real, expected, {}, content, content);
  }
  /// Follows by the events alone, except where they do not tell the content.
  static void follow(const auto& source, const Changes& changes, bool isTold, Texts& copy) {
    const bool isWholesale = std::ranges::any_of(changes, [](const Change& change) {
      return change.indexes.empty() && change.elements.size() < 2;
    });
    if (!isTold || isWholesale) {
      copy = textsOf(source);
    } else {
      for (const Change& change : changes) replay(change, copy, source);
      // What a pointer leads to may have changed in several places of a view at once.
      if (std::is_same_v<T, SharedItem>) return;
      EXPECT_EQ(copy, textsOf(source)) << "the events alone must tell the content";
    }
  }
  bool isSame(Random& random) {
    EXPECT_TRUE(isSameContent(kerray->array(), model.content));
    follow(*kerray, first, !nests, copy);
    EXPECT_EQ(std::exchange(first, {}), std::exchange(model.first, {}));
    EXPECT_EQ(std::exchange(last, {}), std::exchange(model.last, {}));
    const T any = makeElement<T>(draw(random, 3 * model.count() / 2 + 20), draw(random, 9));
    const T* found = kerray->elementWithKey(itemOf(any).key);
    EXPECT_EQ(found ? textForm(*found) : "none",
              model.contains(any) ? textForm(model.dictionary.at(model.keyOf(any))) : "none");
    EXPECT_EQ(kerray->indexOf(any).value_or(-1), model.indexOf(any));
    for (std::size_t i = 0; i < reals.size(); ++i) {
      const View& real = *reals[i].view;
      ViewModel<T>& view = model.views[i];
      EXPECT_EQ(real.filteredsortedArray().has_value(), view.array.has_value());
      EXPECT_TRUE(isSameContent(real, view.shown(model.content)))
          << textForm(textsOf(real)) << "\n"
          << textForm(textsOf(view.shown(model.content)));
      EXPECT_EQ(real.contains(any), view.array ? view.find(any) >= 0 : model.contains(any));
      const Changes changes = std::exchange(reals[i].listener->changes, {});
      EXPECT_EQ(changes, std::exchange(view.changes, {}));
      // The events of a view that is filtered in natural order do not tell its content, nor do
      // those of a pass-through that hears of changes in disorder.
      const bool isTold = view.sort || (!view.array && !view.filterAtCreation && !nests);
      follow(real, changes, isTold, reals[i].copy);
    }
    return !::testing::Test::HasFailure();
  }

  std::shared_ptr<Kerray<T>> kerray = Kerray<T>::make();
  KerrayModel<T> model;
  std::vector<Real> reals;
  Texts copy;
  Changes first;
  Changes last;
  std::vector<Random> nestedBefore;
  std::vector<Random> nestedAfter;
  bool nests = false;
  OwnerToken owner;
};

}  // namespace tolvanite::testing
