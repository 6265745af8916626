// Removal from arrays, by value and by index. Each closes the array up in one pass, after all that
// has to be compared is compared: the values to remove may stand in the array itself.
//
//   std::vector<std::string> names{"a", "b", "a", "c"};
//   tolvanite::remove(names, "a");                                // names: b c
//   tolvanite::tvRemoveObject_firstMatch(names, "c");             // 1
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <functional>
#include <ranges>
#include <source_location>
#include <unordered_set>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Frame/detail/RemovalPlan.h>

namespace tolvanite {

namespace detail {

/// The given values to look for, by hash where they have one; they are looked at, not copied.
template <std::equality_comparable T>
class ValuesToFind {
  struct Equal {
    bool operator()(const T* a, const T* b) const { return *a == *b; }
  };
  struct Hash {
    std::size_t operator()(const T* value) const { return std::hash<T>{}(*value); }
  };

 public:
  template <std::ranges::forward_range Values>
  explicit ValuesToFind(const Values& values) {
    for (const T& value : values) {
      if constexpr (Hashable<T>) {
        values_.insert(&value);
      } else {
        values_.push_back(&value);
      }
    }
  }

  bool contains(const T& value) const { return find(value) != values_.end(); }
  /// Forgets the value and those that equal it; whether there was one.
  bool take(const T& value) {
    if constexpr (Hashable<T>) {
      return values_.erase(&value) > 0;
    } else {
      return std::erase_if(values_, [&](const T* given) { return value == *given; }) > 0;
    }
  }

 private:
  auto find(const T& value) const {
    if constexpr (Hashable<T>) {
      return values_.find(&value);
    } else {
      return std::ranges::find_if(values_, [&](const T* given) { return value == *given; });
    }
  }

  std::conditional_t<Hashable<T>, std::unordered_set<const T*, Hash, Equal>, std::vector<const T*>>
      values_;
};

template <typename T, typename IsRemoved>
Int removeWhereAndCount(std::vector<T>& array, IsRemoved&& isRemoved) {
  const Int before = countOf(array);
  removeWhere(array, isRemoved);
  return before - countOf(array);
}

}  // namespace detail

/// A range of values that can be looked for among elements of type `T`.
template <typename R, typename T>
concept ValuesOf = std::ranges::forward_range<R> && std::same_as<ElementOf<R>, T> &&
                   std::is_lvalue_reference_v<std::ranges::range_reference_t<R>>;

/// Removes every element that equals `value`.
template <typename T, typename Value = T>
  requires ComparesEqualTo<T, Value>
void remove(std::vector<T>& array, const Value& value) {
  detail::removeWhere(array, [&](const T& element) { return element == value; });
}

/// A copy of the array without the elements that equal `value`.
template <std::ranges::input_range R, typename Value = ElementOf<R>>
  requires ComparesEqualTo<ElementOf<R>, Value>
std::vector<ElementOf<R>> arrayRemoving(R&& array, const Value& value) {
  std::vector<ElementOf<R>> result;
  for (auto&& element : array) {
    if (!(element == value)) result.push_back(element);
  }
  return result;
}

/// Removes the first element that equals `value`. Gives the index that it had, or absent.
template <typename T, typename Value = T>
  requires ComparesEqualTo<T, Value>
Optional<Int> tvRemoveObject_firstMatch(std::vector<T>& array, const Value& value) {
  const auto found =
      std::ranges::find_if(array, [&](const T& element) { return element == value; });
  if (found == array.end()) return {};
  const Int index = found - array.begin();
  array.erase(found);
  return index;
}

/// Removes, for each of the values, the first element that equals it. Gives the count of removed
/// elements; a value given twice counts once.
template <std::equality_comparable T, ValuesOf<T> Values = std::vector<T>>
Int tvRemoveObjects_firstMatchesOnly(std::vector<T>& array, const Values& values) {
  detail::ValuesToFind<T> wanted(values);
  return detail::removeWhereAndCount(array, [&](const T& element) { return wanted.take(element); });
}

/// Removes all elements that equal one of the values. Gives their count.
template <std::equality_comparable T, ValuesOf<T> Values = std::vector<T>>
Int tvRemoveObjects(std::vector<T>& array, const Values& values) {
  const detail::ValuesToFind<T> wanted(values);
  return detail::removeWhereAndCount(array,
                                     [&](const T& element) { return wanted.contains(element); });
}

/// Removes the elements at the indexes, given in any order, and gives them, highest index first.
/// They are removed from the highest index down; a repeated index takes what is at that place then.
/// An index that is out of range when its turn comes is fatal.
template <std::movable T>
std::vector<T> removeAtIndexes(std::vector<T>& array, std::vector<Int> indexes,
                               std::source_location location = std::source_location::current()) {
  std::ranges::sort(indexes);
  const detail::RemovalPlan plan(indexes, detail::countOf(array), location);
  std::vector<T> result;
  result.reserve(indexes.size());
  for (const Int position : plan.positions()) {
    result.push_back(std::move(detail::elementAt(array, position)));
  }
  detail::closeHoles(array, plan.holes());
  return result;
}

}  // namespace tolvanite
