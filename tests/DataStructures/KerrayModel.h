// The keyed array and the views on it once more, written for obviousness: plain arrays, linear
// scans, one step after the other. Whatever ends the process there throws `Fatal` here.
#pragma once

#include <functional>
#include <map>
#include <optional>

#include <Tolvanite/Frame/detail/StableSort.h>

#include "tests/DataStructures/Items.h"

namespace tolvanite::testing {

struct Fatal {};

inline void require(bool condition) {
  if (!condition) throw Fatal();
}

template <typename T>
struct ViewModel {
  using Filter = Block<bool(const T&)>;
  using Array = std::vector<T>;

  Filter filterAtCreation;
  Filter filter = filterAtCreation;
  std::optional<NamedSortBlock<T>> sort;
  std::optional<Array> array;
  Changes changes;

  void rebuild(const Array& base) {
    array.reset();
    if (!filter && !sort) return;
    array.emplace();
    for (const T& element : base) {
      if (!filter || filter(element)) array->push_back(element);
    }
    if (sort) sortBy(*array);
  }
  void setSortBlock(const Array& base, std::optional<NamedSortBlock<T>> newSort) {
    const bool isSame = newSort == sort;
    sort = newSort;
    if (isSame) return;
    rebuild(base);
    tell("sortingChanged", {}, Texts{sort ? sort->code : "none"});
  }
  void setFilterBlock(const Array& base, Filter newFilter) {
    const bool areAbsent = !newFilter && !filter;
    filter = newFilter;
    if (areAbsent) return;
    rebuild(base);
    tell("filterChanged");
  }

  const Array& shown(const Array& base) const { return array ? *array : base; }
  Int find(const T& element) const {
    const auto found = std::ranges::find_if(
        *array, [&](const T& other) { return ElementTraits<T>::equal(other, element); });
    return found == array->end() ? -1 : found - array->begin();
  }
  Int mustFind(const T& element) const {
    require(find(element) >= 0);
    return find(element);
  }
  bool passes(const T& element) const { return !filter || filter(element); }

  void sortBy(Array& elements) const {
    // A reversed block is no strict order, and which of two ties comes first is up to the sort.
    if (sort->reverse) {
      detail::stableSort(elements, sort->sortBlock);
    } else {
      std::ranges::stable_sort(elements, sort->sortBlock);
    }
  }
  Int insertionIndex(const T& element) const {
    if (array->empty()) return 0;
    std::size_t low = 0;
    std::size_t high = array->size() - 1;
    while (low < high) {
      const std::size_t mid = low + (high - low) / 2;
      if (sort->sortBlock((*array)[mid], element)) {
        low = mid + 1;
      } else {
        high = mid;
      }
    }
    return static_cast<Int>(sort->sortBlock((*array)[low], element) ? array->size() : low);
  }
  bool canStay(const T& element, Int index) const {
    const auto mayFollow = [&](const T& left, const T& right) {
      return sort->sortBlock(left, right) || !sort->sortBlock(right, left);
    };
    const auto i = static_cast<std::size_t>(index);
    return (i == 0 || mayFollow((*array)[i - 1], element)) &&
           (i + 1 == array->size() || mayFollow(element, (*array)[i + 1]));
  }

  void tell(std::string event, std::vector<Int> indexes = {}, const Texts& elements = {},
            Int to = -1) {
    changes.push_back({std::move(event), std::move(indexes), elements, to});
  }
  void tell(std::string event, std::vector<Int> indexes, const Array& elements, Int to = -1) {
    tell(std::move(event), std::move(indexes), textsOf(elements), to);
  }
  void hear(const Array& base, const std::string& event, const std::vector<Int>& indexes,
            const Array& elements, Int to) {
    if (event == "replacedContent") {
      if (sort || filter) rebuild(base);
      tell(event);
    } else if (event == "removedAll") {
      array.emplace();
      tell(event);
    } else if (event == "inserted") {
      hearInserted(base, indexes, elements);
    } else if (event.starts_with("insertedMultiple")) {
      hearInsertedMultiple(base, event, indexes, elements);
    } else if (event == "removed") {
      if (!array) return tell(event, indexes, elements);
      if (!passes(elements[0])) return;
      const Int place = mustFind(elements[0]);
      array->erase(array->begin() + place);
      tell(event, {place}, elements);
    } else if (event == "removedMultiple") {
      hearRemovedMultiple(indexes, elements);
    } else if (event == "updated") {
      hearUpdated(base, indexes, elements);
    } else if (event == "moved") {
      if (!sort) tell(event, indexes, elements, to);
    } else {
      require(event == "movedMultiple" && !sort && !filter && !array);
      tell(event, indexes, elements, to);
    }
  }

  void hearInserted(const Array& base, const std::vector<Int>& indexes, const Array& elements) {
    const T& element = elements[0];
    if (filterAtCreation && !filterAtCreation(element)) return;
    if (!filterAtCreation && !sort) return tell("inserted", indexes, elements);
    Int place = -1;
    if (sort) {
      place = insertionIndex(element);
      array->insert(array->begin() + place, element);
    } else {
      array.emplace();
      for (const T& other : base) {
        if (!filterAtCreation(other)) continue;
        if (ElementTraits<T>::key(other) == ElementTraits<T>::key(element)) {
          place = static_cast<Int>(array->size());
        }
        array->push_back(other);
      }
      require(place >= 0);  // else the element has gone again, and its place is anyone's
    }
    tell("inserted", {place}, elements);
  }

  void hearInsertedMultiple(const Array& base, const std::string& event,
                            const std::vector<Int>& indexes, const Array& elements) {
    Array passing = elements;
    if (filterAtCreation) {
      std::erase_if(passing, std::not_fn(filterAtCreation));
      if (passing.size() == elements.size()) return;
    }
    if (sort) {
      sortBy(passing);
      std::vector<Int> places;
      for (const T& element : passing) {
        places.push_back(insertionIndex(element));
        array->insert(array->begin() + places.back(), element);
      }
      return tell("insertedMultipleDistributed", places, passing);
    }
    if (!filterAtCreation) return tell(event, indexes, elements);
    std::vector<Int> places(passing.size(), 0);
    array.emplace();
    for (const T& other : base) {
      if (!filterAtCreation(other)) continue;
      const auto found = std::ranges::find_if(
          passing, [&](const T& element) { return ElementTraits<T>::equal(element, other); });
      if (found != passing.end()) {
        places[static_cast<std::size_t>(found - passing.begin())] = static_cast<Int>(array->size());
      }
      array->push_back(other);
    }
    tell("insertedMultipleDistributed", places, passing);
  }

  void hearRemovedMultiple(const std::vector<Int>& indexes, const Array& elements) {
    if (!array) return tell("removedMultiple", indexes, elements);
    Array kept;
    std::vector<Int> places;
    for (const T& element : elements) {
      if (!passes(element)) continue;
      kept.push_back(element);
      places.push_back(mustFind(element));
    }
    if (kept.empty()) return;
    auto descending = places;
    std::ranges::sort(descending, std::ranges::greater());
    for (const Int place : descending) {
      require(place < static_cast<Int>(array->size()));
      array->erase(array->begin() + place);
    }
    tell("removedMultiple", places, kept);
  }

  void hearUpdated(const Array& base, const std::vector<Int>& indexes, const Array& elements) {
    if (!array) return tell("updated", indexes, elements);
    const T& element = elements[0];
    if (filter) {
      const Int place = find(element);
      if (filter(element) && place < 0) {
        require(indexes[0] <= static_cast<Int>(base.size()));
        Int neighbour = indexes[0] - 1;
        while (neighbour >= 0 && !filter(base[static_cast<std::size_t>(neighbour)])) --neighbour;
        const Int to = neighbour < 0 ? 0 : mustFind(base[static_cast<std::size_t>(neighbour)]) + 1;
        array->insert(array->begin() + to, element);
        return tell("inserted", {to}, elements);
      }
      if (!filter(element)) {
        if (place < 0) return;
        array->erase(array->begin() + place);
        return tell("removed", {place}, elements);
      }
    }
    if (!sort) return tell("updated", indexes, elements);
    const Int place = mustFind(element);
    if (canStay(element, place)) {
      (*array)[static_cast<std::size_t>(place)] = element;
      return tell("updated", {place}, elements);
    }
    array->erase(array->begin() + place);
    const Int to = insertionIndex(element);
    array->insert(array->begin() + to, element);
    tell("moved", {place}, elements, to);
    tell("updated", {to}, elements);
  }
};

template <typename T>
std::string randomStep(auto& kerray, Random random);

template <typename T>
struct KerrayModel {
  using Array = std::vector<T>;
  using Indexes = std::vector<Int>;

  Array content;
  std::map<Int, T> dictionary;
  std::vector<ViewModel<T>> views;
  Changes first;  // heard before the views
  Changes last;   // heard after them
  std::vector<Random> nestedBefore;
  std::vector<Random> nestedAfter;

  const Array& array() const { return content; }
  Int count() const { return static_cast<Int>(content.size()); }
  static Int keyOf(const T& element) { return ElementTraits<T>::key(element); }
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

  void tell(const std::string& event, const Indexes& indexes = {}, const Array& elements = {},
            Int to = -1) {
    first.push_back({event, indexes, textsOf(elements), to});
    runOne(nestedBefore);
    for (auto& view : views) view.hear(content, event, indexes, elements, to);
    last.push_back({event, indexes, textsOf(elements), to});
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
  void appendWithoutContainsCheck(const T& element) {
    insertWithoutContainsCheck(element, count());
  }
  void insertWithoutContainsCheck(const T& element, Int index) {
    place(element, index);
    tell("inserted", {index}, {element});
  }
  void appendMultiple(const Array& elements) { insertMultiple(elements, count(), true); }
  void insertMultiple(const Array& elements, Int index, bool test) {
    const auto [fresh, present] = split(elements, test);
    if (!fresh.empty()) {
      require(index >= 0 && index <= count());
      content.insert(content.begin() + index, fresh.begin(), fresh.end());
      for (const T& element : fresh) dictionary[keyOf(element)] = element;
      tell("insertedMultipleContinuous", {index}, fresh);
    }
    reportPresent(present);
  }
  void insertMultipleDistributed(const Array& elements, const Indexes& indexes, bool test) {
    if (elements.size() != indexes.size()) return;
    Indexes keptIndexes;
    for (std::size_t i = 0; i < indexes.size(); ++i) {
      if (!test || !contains(elements[i])) keptIndexes.push_back(indexes[i]);
    }
    const auto [fresh, present] = split(elements, test);
    for (std::size_t i = 0; i < fresh.size(); ++i) place(fresh[i], keptIndexes[i]);
    if (!fresh.empty()) tell("insertedMultipleDistributed", keptIndexes, fresh);
    reportPresent(present);
  }
  std::pair<Array, Array> split(const Array& elements, bool test) const {
    std::pair<Array, Array> result;
    for (const T& element : elements) {
      (test && contains(element) ? result.second : result.first).push_back(element);
    }
    return result;
  }
  static void reportPresent(const Array& present) {
    if (present.empty()) return;
    std::string texts;
    for (const T& element : present) texts += (texts.empty() ? "" : ",") + textForm(element);
    throw KerrayErrur::elementsAlreadyPresent(static_cast<Int>(present.size()), texts);
  }

  std::optional<T> update(const T& element) {
    const Int index = indexOf(element);
    if (index < 0) return {};
    return update(element, index);
  }
  T update(const T& element, Int index) {
    store(element, index);
    tell("updated", {index}, {element});
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
    tell("updatedMultiple", indexes, updated);
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
    tell("moved", {from}, {element}, to);
  }
  void move(const Indexes& from, Int to) {
    require(to <= count() &&
            std::ranges::adjacent_find(from, std::ranges::greater_equal()) == from.end());
    Array moved;
    for (const Int index : from | std::views::reverse) moved.push_back(takeOut(index));
    require(to >= 0 && to <= count());
    for (const T& element : moved) content.insert(content.begin() + to, element);
    tell("movedMultiple", from, moved, to);
  }

  void replaceContent(const Array& elements) {
    content = elements;
    dictionary.clear();
    for (const T& element : content) dictionary[keyOf(element)] = element;
    tell("replacedContent");
  }
  void removeAll() {
    content.clear();
    dictionary.clear();
    tell("removedAll");
  }
  std::optional<T> removeAtIndex(Int index) {
    if (index >= count()) return {};
    const T element = takeOut(index);
    dictionary.erase(keyOf(element));
    tell("removed", {index}, {element});
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
    tell("removedMultiple", indexes, removed);
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
  const Int keys = 3 * n / 2 + 20;
  const auto index = [&] { return draw(random, n); };
  const auto element = [&](bool isPresent) {
    const Int key = isPresent && n > 0
                        ? ElementTraits<T>::key(kerray.array()[static_cast<std::size_t>(index())])
                        : draw(random, keys);
    return makeElement<T>(key, draw(random, 9), draw(random, 4));
  };
  const auto elements = [&](bool arePresent) {
    std::vector<T> result;
    for (Int i = draw(random, draw(random, 12) == 0 ? 60 : 5); i >= 0; --i) {
      const T one = element(arePresent);
      // A batch repeats keys only where the caller breaks the trust.
      if (isTrusting || std::ranges::none_of(result, [&](const T& other) {
            return ElementTraits<T>::key(other) == ElementTraits<T>::key(one);
          })) {
        result.push_back(one);
      }
    }
    return result;
  };
  const auto indexes = [&](Int below) {
    std::vector<Int> result;
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
  const Int knownKey = ElementTraits<T>::key(known);
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
      std::vector<Int> places;
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

  explicit Pair(std::vector<ViewModel<T>> views = {}) {
    model.views = std::move(views);
    listen(first, nestedBefore);
    for (auto& view : model.views) {
      view.rebuild(model.content);
      Real real{
          View::make(kerray, view.filter, Optional<NamedSortBlock<T>>(view.sort)), nullptr, {}};
      real.listener = std::make_unique<Listener>(*real.view);
      reals.push_back(std::move(real));
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
  template <typename Step>
  bool step(const Step& step) {
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
    hearsInDisorder = !before.empty();
    model.nestedBefore = nestedBefore = before;
    model.nestedAfter = nestedAfter = after;
  }
  bool randomlyStep(Random& random) {
    const Random now(random());
    return step([&](auto& target) { return randomStep<T>(target, now); });
  }

  bool isSame(Random& random) {
    const auto compare = [](const auto& real, const auto& expected) {
      return std::ranges::equal(real, expected, [](const T& a, const T& b) {
        return itemOf(a).key == itemOf(b).key && itemOf(a).rank == itemOf(b).rank &&
               itemOf(a).group == itemOf(b).group;
      });
    };
    EXPECT_TRUE(compare(kerray->array(), model.content));
    EXPECT_EQ(std::exchange(first, {}), std::exchange(model.first, {}));
    EXPECT_EQ(std::exchange(last, {}), std::exchange(model.last, {}));
    const T any = makeElement<T>(draw(random, 3 * model.count() / 2 + 20), draw(random, 9));
    const T* found = kerray->elementWithKey(ElementTraits<T>::key(any));
    EXPECT_EQ(found ? textForm(*found) : "none",
              model.contains(any) ? textForm(model.dictionary.at(model.keyOf(any))) : "none");
    EXPECT_EQ(kerray->indexOf(any).value_or(-1), model.indexOf(any));
    for (std::size_t i = 0; i < reals.size(); ++i) {
      Real& real = reals[i];
      ViewModel<T>& view = model.views[i];
      const auto& shown = view.shown(model.content);
      EXPECT_EQ(real.view->filteredsortedArray().has_value(), view.array.has_value());
      EXPECT_TRUE(compare(*real.view, shown)) << textForm(textsOf(*real.view)) << "\n"
                                              << textForm(textsOf(shown));
      EXPECT_EQ(real.view->contains(any), view.array ? view.find(any) >= 0 : model.contains(any));
      const Changes changes = real.listener->heard();
      EXPECT_EQ(changes, std::exchange(view.changes, {}));
      // A view of the base itself, and a sorted one, can be followed by its events alone. Filtered
      // in natural order it cannot, nor can any pass-through be that hears of changes in disorder.
      const bool isMirrored =
          view.sort || (!view.array && !view.filterAtCreation && !hearsInDisorder);
      const bool isWholesale = std::ranges::any_of(changes, [](const Change& change) {
        return change.indexes.empty() && change.elements.size() < 2;
      });
      if (!isMirrored || isWholesale) {
        real.copy = textsOf(*real.view);
      } else {
        for (const Change& change : changes) replay(change, real.copy, *real.view);
        // What a pointer leads to may have changed in several places of the view at once.
        if constexpr (!std::is_same_v<T, SharedItem>) {
          EXPECT_EQ(real.copy, textsOf(*real.view));
        }
      }
    }
    return !::testing::Test::HasFailure();
  }

  std::shared_ptr<Kerray<T>> kerray = Kerray<T>::make();
  KerrayModel<T> model;
  std::vector<Real> reals;
  Changes first;
  Changes last;
  std::vector<Random> nestedBefore;
  std::vector<Random> nestedAfter;
  bool hearsInDisorder = false;
  OwnerToken owner;
};

}  // namespace tolvanite::testing
