// The elements of the collection tests, and changes in a form that can be compared and replayed.
#pragma once

#include <algorithm>
#include <memory>
#include <ostream>
#include <random>
#include <ranges>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/Kerray.h>
#include <Tolvanite/DataStructures/OptionallyFilteredOptionallySortedArray_BasedOnKerray.h>

namespace tolvanite::testing {

using Random = std::mt19937_64;

inline Int draw(Random& random, Int below) {
  return below <= 0 ? 0 : static_cast<Int>(random() % static_cast<std::uint64_t>(below));
}

/// Its equality is that of the key, as the views want it.
struct Item {
  Int key = 0;
  Int rank = 0;
  Int group = 0;
  bool operator==(const Item& other) const { return key == other.key; }
  std::string description() const {
    return std::to_string(key) + "/" + std::to_string(rank) + "/" + std::to_string(group);
  }
};

/// Its equality covers what changes.
struct StrictItem : Item {
  bool operator==(const StrictItem& other) const {
    return key == other.key && rank == other.rank && group == other.group;
  }
};

using SharedItem = std::shared_ptr<Item>;

template <typename T>
T makeElement(Int key, Int rank = 0, Int group = 0) {
  if constexpr (std::is_same_v<T, SharedItem>)
    return std::make_shared<Item>(Item{key, rank, group});
  if constexpr (std::is_same_v<T, StrictItem>) return {{key, rank, group}};
  if constexpr (std::is_same_v<T, Item>) return {key, rank, group};
}
inline const Item& itemOf(const Item& item) { return item; }
inline const Item& itemOf(const SharedItem& item) { return *item; }

using Indexes = std::vector<Int>;
using Texts = std::vector<std::string>;
template <typename Elements>
Texts textsOf(const Elements& elements) {
  Texts texts;
  for (const auto& element : elements) texts.push_back(textForm(element));
  return texts;
}

/// An event with all its arguments.
template <typename Element>
struct ChangeOf {
  std::string event;
  Indexes indexes = {};
  std::vector<Element> elements = {};
  Int to = -1;
  bool operator==(const ChangeOf&) const = default;
};
/// Elements by their content at that time.
using Change = ChangeOf<std::string>;
using Changes = std::vector<Change>;
inline std::ostream& operator<<(std::ostream& out, const Change& change) {
  out << change.event;
  if (!change.indexes.empty()) out << textForm(change.indexes);
  if (change.to >= 0) out << '>' << change.to;
  for (const auto& element : change.elements) out << ' ' << element;
  return out;
}

/// What `changed` does to a copy of the content; `now` is the content that wholesale events mean.
template <typename Now>
void replay(const Change& change, Texts& copy, const Now& now) {
  const auto at = [&](Int index) {
    if (index < 0 || index > static_cast<Int>(copy.size())) throw std::out_of_range("replay");
    return copy.begin() + index;
  };
  const auto& [event, indexes, elements, to] = change;
  if (event == "inserted" || event == "insertedMultipleDistributed") {
    for (std::size_t i = 0; i < indexes.size(); ++i) copy.insert(at(indexes[i]), elements[i]);
  } else if (event == "insertedMultipleContinuous") {
    copy.insert(at(indexes[0]), elements.begin(), elements.end());
  } else if (event == "removed" || event == "removedMultiple") {
    auto descending = indexes;
    std::ranges::sort(descending, std::ranges::greater());
    for (const Int index : descending) copy.erase(at(index));
  } else if (event == "updated" || event == "updatedMultiple") {
    for (std::size_t i = 0; i < indexes.size(); ++i) *at(indexes[i]) = elements[i];
  } else if (event == "moved" || event == "movedMultiple") {
    for (const Int from : indexes | std::views::reverse) copy.erase(at(from));
    for (const auto& element : elements) copy.insert(at(to), element);
  } else {
    copy = textsOf(now);
  }
}

/// What all of these do to it. Before its move an update may be told with the new index, and then
/// the move alone tells.
template <typename Now>
void replayAll(const Changes& changes, Texts& copy, const Now& now) {
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const bool doesMoveFollow = i + 1 < changes.size() && changes[i + 1].event == "moved";
    if (changes[i].event != "updated" || !doesMoveFollow) replay(changes[i], copy, now);
  }
}

/// Sets all blocks that `observer` has to hand their arguments to `hear(change)`.
template <typename Observer>
void hearAll(Observer& observer, Block<void(const Change&)> hear) {
  const auto one = [hear](std::string event) {
    return [=](auto&, Int index, const auto& second, const auto&... third) {
      if constexpr (sizeof...(third) == 0) hear({event, {index}, {textForm(second)}});
      if constexpr (sizeof...(third) == 1) hear({event, {index}, {textForm(third)...}, second});
    };
  };
  const auto many = [hear](std::string event) {
    return [=](auto&, const Indexes& indexes, const auto& elements) {
      hear({event, indexes, textsOf(elements)});
    };
  };
  const auto none = [hear](std::string event) { return [=](auto&) { hear({event}); }; };
  observer.replacedContent = none("replacedContent");
  observer.removedAll = none("removedAll");
  observer.inserted = one("inserted");
  observer.removed = one("removed");
  observer.updated = one("updated");
  observer.moved = one("moved");
  if constexpr (requires { observer.movedMultiple; }) {
    observer.insertedMultipleContinuous = [hear](auto&, Int index, const auto& elements) {
      hear({"insertedMultipleContinuous", {index}, textsOf(elements)});
    };
    observer.insertedMultipleDistributed = many("insertedMultipleDistributed");
    observer.removedMultiple = many("removedMultiple");
    observer.movedMultiple = [hear](auto&, const Indexes& from, Int to, const auto& elements) {
      hear({"movedMultiple", from, textsOf(elements), to});
    };
  }
  if constexpr (requires { observer.updatedMultiple; }) {
    observer.updatedMultiple = many("updatedMultiple");
  }
  if constexpr (requires { observer.filterChanged; }) {
    observer.filterChanged = none("filterChanged");
  }
  if constexpr (requires { observer.sortingChanged; }) {
    observer.sortingChanged = [hear](auto&, const Optional<std::string>& code) {
      hear({"sortingChanged", {}, {code.value_or("none")}});
    };
  }
}

/// Subscribes to everything and keeps it.
struct Listener {
  explicit Listener(auto& observed) {
    observed.observers.createNew(owner, [this](auto& observer) {
      hearAll(observer, [this](const Change& change) { changes.push_back(change); });
    });
  }
  Listener(const Listener&) = delete;
  /// What was heard since the last call, as "inserted[0] 1/0/0; moved[0]>1 1/0/0".
  std::string heard() {
    std::ostringstream text;
    for (const Change& change : changes) text << (text.tellp() > 0 ? "; " : "") << change;
    changes.clear();
    return text.str();
  }

  Changes changes;
  OwnerToken owner;
};

}  // namespace tolvanite::testing
