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

#include <Tolvanite/DataStructures/ElementSet.h>
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

/// What was printed, without the lines that begin with `start`.
inline std::string withoutLines(const std::string& start, const std::string& text) {
  std::istringstream lines(text);
  std::string result;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with(start)) result += line + "\n";
  }
  return result;
}
Texts sortedTextsOf(const auto& elements) {
  Texts texts = textsOf(elements);
  std::ranges::sort(texts);
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
  if (event == "inserted" || event == "insertedMultiple" ||
      event == "insertedMultipleDistributed") {
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

/// Adds an argument of an event. What comes in a set is put in the order of the texts.
template <typename Element>
void note(ChangeOf<Element>& change, const auto& argument, bool isFirst) {
  using Argument = std::remove_cvref_t<decltype(argument)>;
  if constexpr (std::is_same_v<Argument, Int>) {
    (isFirst ? change.indexes.emplace_back() : change.to) = argument;
  } else if constexpr (std::is_same_v<Argument, Indexes>) {
    change.indexes = argument;
  } else if constexpr (std::is_same_v<Argument, Optional<std::string>>) {
    note(change, argument.value_or("none"), isFirst);
  } else if constexpr (std::is_same_v<Argument, Element>) {
    change.elements.push_back(argument);
  } else if constexpr (std::ranges::range<Argument>) {
    for (const auto& element : argument) note(change, element, isFirst);
    if constexpr (requires { argument.find(*argument.begin()); } && std::totally_ordered<Element>)
      std::ranges::sort(change.elements);
  } else if constexpr (std::is_same_v<Element, std::string>) {
    change.elements.push_back(textForm(argument));
  }
}

/// Sets all blocks that the observer has to hand their arguments to `hear(change)`.
template <typename Element = std::string, typename Observer>
void hearAll(Observer& o, std::type_identity_t<Block<void(const ChangeOf<Element>&)>> hear) {
  const auto on = [&](auto& block, const char* event) {
    block = [hear, event](auto&, const auto&... arguments) {
      ChangeOf<Element> change{event};
      [[maybe_unused]] bool isFirst = true;
      ((note(change, arguments, isFirst), isFirst = false), ...);
      hear(change);
    };
  };
  on(o.replacedContent, "replacedContent");
  on(o.removedAll, "removedAll");
  on(o.inserted, "inserted");
  on(o.removed, "removed");
  on(o.updated, "updated");
  if constexpr (requires { o.insertedMultiple; }) on(o.insertedMultiple, "insertedMultiple");
  if constexpr (requires { o.removedMultiple; }) on(o.removedMultiple, "removedMultiple");
  if constexpr (requires { o.updatedMultiple; }) on(o.updatedMultiple, "updatedMultiple");
  if constexpr (requires { o.moved; }) on(o.moved, "moved");
  if constexpr (requires { o.sortingChanged; }) on(o.sortingChanged, "sortingChanged");
  if constexpr (requires { o.filterChanged; }) on(o.filterChanged, "filterChanged");
  if constexpr (requires { o.replacedContentOldContent; })
    on(o.replacedContentOldContent, "replacedContentOldContent");
  if constexpr (requires { o.movedMultiple; }) {
    on(o.insertedMultipleContinuous, "insertedMultipleContinuous");
    on(o.insertedMultipleDistributed, "insertedMultipleDistributed");
    on(o.movedMultiple, "movedMultiple");
  }
  if constexpr (requires { o.inSetInserted; }) {
    on(o.filterBlockChanged, "filterBlockChanged");
    on(o.inSetInserted, "inSetInserted");
    on(o.inSetUpdated, "inSetUpdated");
    on(o.inSetRemoved, "inSetRemoved");
    on(o.outSetInserted, "outSetInserted");
    on(o.outSetUpdated, "outSetUpdated");
    on(o.outSetRemoved, "outSetRemoved");
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
