// A view on a keyed array once more, written for obviousness: a plain array, linear scans. Whatever
// ends the process there throws `Fatal` here.
#pragma once

#include <functional>
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
  using Sort = std::optional<NamedSortBlock<T>>;
  using Array = std::vector<T>;
  using Event = ChangeOf<T>;

  Filter filterAtCreation;
  Sort sort;
  Filter filter = filterAtCreation;
  std::optional<Array> array = {};
  Changes changes = {};

  const Array& shown(const Array& base) const { return array ? *array : base; }
  void fill(const Array& base, const Filter& passing) {
    array.emplace();
    for (const T& element : base) {
      if (!passing || passing(element)) array->push_back(element);
    }
  }
  void rebuild(const Array& base) {
    fill(base, filter);
    if (sort) sortBy(*array);
    if (!filter && !sort) array.reset();
  }
  void setSortBlock(const Array& base, Sort newSort) {
    if (std::exchange(sort, newSort) == newSort) return;
    rebuild(base);
    changes.push_back({"sortingChanged", {}, {sort ? sort->code : "none"}});
  }
  void setFilterBlock(const Array& base, Filter newFilter) {
    if (!std::exchange(filter, newFilter) && !newFilter) return;
    rebuild(base);
    changes.push_back({"filterChanged"});
  }

  static bool areEqual(const T& a, const T& b) { return ElementTraits<T>::equal(a, b); }
  Int find(const T& element) const {
    const auto found =
        std::ranges::find_if(*array, [&](const T& other) { return areEqual(other, element); });
    return found == array->end() ? -1 : found - array->begin();
  }
  Int mustFind(const T& element) const {
    require(find(element) >= 0);
    return find(element);
  }
  T& at(Int index) { return (*array)[static_cast<std::size_t>(index)]; }
  bool passes(const T& element) const { return !filter || filter(element); }

  void sortBy(Array& elements) const {
    // A reversed block is no strict order, and which of two ties comes first is up to the sort.
    if (sort->reverse) return detail::stableSort(elements, sort->sortBlock);
    std::ranges::stable_sort(elements, sort->sortBlock);
  }
  Int insertSorted(const T& element) {
    const auto isBefore = [&](Int index) { return sort->sortBlock(at(index), element); };
    Int low = 0;
    Int high = static_cast<Int>(array->size()) - 1;
    while (low < high) {
      const Int mid = low + (high - low) / 2;
      (isBefore(mid) ? low : high) = isBefore(mid) ? mid + 1 : mid;
    }
    if (!array->empty() && isBefore(low)) low = static_cast<Int>(array->size());
    array->insert(array->begin() + low, element);
    return low;
  }
  bool canStay(const T& element, Int i) {
    const auto mayFollow = [&](const T& left, const T& right) {
      return sort->sortBlock(left, right) || !sort->sortBlock(right, left);
    };
    return (i == 0 || mayFollow(at(i - 1), element)) &&
           (i + 1 == static_cast<Int>(array->size()) || mayFollow(element, at(i + 1)));
  }

  void tell(const std::string& event, const Indexes& indexes, const Array& elements, Int to = -1) {
    changes.push_back({event, indexes, textsOf(elements), to});
  }
  void forward(const Event& e) { tell(e.event, e.indexes, e.elements, e.to); }
  void hear(const Array& base, const Event& e) {
    if (e.event == "replacedContent") {
      if (sort || filter) rebuild(base);
      forward(e);
    } else if (e.event == "removedAll") {
      array.emplace();
      forward(e);
    } else if (e.event.starts_with("inserted")) {
      hearInserted(base, e, e.event == "inserted");
    } else if (e.event.starts_with("removed")) {
      hearRemoved(e);
    } else if (e.event == "updated") {
      hearUpdated(base, e, e.elements[0]);
    } else if (e.event == "moved") {
      if (!sort) forward(e);
    } else {
      require(e.event == "movedMultiple" && !sort && !filter && !array);
      forward(e);
    }
  }

  void hearInserted(const Array& base, const Event& e, bool isOne) {
    Array passing = e.elements;
    if (filterAtCreation) {
      std::erase_if(passing, std::not_fn(filterAtCreation));
      if (isOne ? passing.empty() : passing.size() == e.elements.size()) return;
    }
    Indexes places;
    if (sort) {
      sortBy(passing);
      for (const T& element : passing) places.push_back(insertSorted(element));
    } else if (filterAtCreation) {
      fill(base, filterAtCreation);
      places.resize(passing.size(), isOne ? -1 : 0);
      for (Int i = 0; i < static_cast<Int>(array->size()); ++i) {
        const auto found = std::ranges::find_if(passing, [&](const T& element) {
          return isOne ? itemOf(element).key == itemOf(at(i)).key : areEqual(element, at(i));
        });
        if (found != passing.end()) places[static_cast<std::size_t>(found - passing.begin())] = i;
      }
      // Else the element has gone again, and its place is anyone's.
      require(!isOne || places[0] >= 0);
    } else {
      return forward(e);
    }
    tell(isOne ? e.event : "insertedMultipleDistributed", places, passing);
  }

  void hearRemoved(const Event& e) {
    if (!array) return forward(e);
    Array kept;
    Indexes places;
    for (const T& element : e.elements) {
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
    tell(e.event, places, kept);
  }

  void hearUpdated(const Array& base, const Event& e, const T& element) {
    if (!array) return forward(e);
    const Int place = find(element);
    if (filter && filter(element) && place < 0) {
      Int neighbour = e.indexes[0] - 1;
      require(neighbour < static_cast<Int>(base.size()));
      while (neighbour >= 0 && !filter(base[static_cast<std::size_t>(neighbour)])) --neighbour;
      const Int to = neighbour < 0 ? 0 : mustFind(base[static_cast<std::size_t>(neighbour)]) + 1;
      array->insert(array->begin() + to, element);
      return tell("inserted", {to}, e.elements);
    }
    if (filter && !filter(element)) {
      if (place < 0) return;
      array->erase(array->begin() + place);
      return tell("removed", {place}, e.elements);
    }
    if (!sort) return forward(e);
    require(place >= 0);
    updateSorted(place, element);
  }
  void updateSorted(Int place, const T& element) {
    if (canStay(element, place)) {
      at(place) = element;
      return tell("updated", {place}, {element});
    }
    array->erase(array->begin() + place);
    const Int to = insertSorted(element);
    tell("moved", {place}, {element}, to);
    tell("updated", {to}, {element});
  }
};

}  // namespace tolvanite::testing
