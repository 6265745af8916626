// Maps, groups and sets made from a sequence, and its repeats found or left out.
//
//   const std::vector<std::string> words{"ant", "bee", "ape"};
//   const auto initial = [](const std::string& word) { return word[0]; };
//   tolvanite::group(words, initial);         // a: ant, ape; b: bee
//   tolvanite::groupAsTuple(words, initial);  // the same as a list, in this order
//   tolvanite::duplicates(std::vector<Int>{1, 2, 1, 1});  // [1, 1]
#pragma once

#include <concepts>
#include <functional>
#include <ranges>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

namespace detail {

// What a block gives for an element of a sequence.
template <typename MakeValue, typename R>
using MadeFrom =
    std::remove_cvref_t<std::invoke_result_t<MakeValue&, std::ranges::range_reference_t<R>>>;

}  // namespace detail

/// A block that gives something hashable for the elements of a sequence.
template <typename KeyOf, typename R>
concept GivesKeyFor =
    std::ranges::input_range<R> && std::invocable<KeyOf&, std::ranges::range_reference_t<R>> &&
    Hashable<detail::MadeFrom<KeyOf, R>>;

/// A block that gives a pair of a hashable key and a value for the elements of a sequence.
template <typename KeyAndValueOf, typename R>
concept GivesKeyAndValueFor = std::ranges::input_range<R> &&
                              std::invocable<KeyAndValueOf&, std::ranges::range_reference_t<R>> &&
                              requires(detail::MadeFrom<KeyAndValueOf, R> made) {
                                requires Hashable<decltype(made.first)>;
                                made.second;
                              };

/// A block that gives an optional hashable value for the elements of a sequence.
template <typename ValueOf, typename R>
concept GivesOptionalFor =
    std::ranges::input_range<R> && std::invocable<ValueOf&, std::ranges::range_reference_t<R>> &&
    detail::OptionalLike<detail::MadeFrom<ValueOf, R>> &&
    Hashable<typename detail::MadeFrom<ValueOf, R>::value_type>;

/// The map of the keys and values that the block gives; a later equal key overwrites.
template <std::ranges::input_range R, GivesKeyAndValueFor<R> KeyAndValueOf>
auto dictionaryBy(R&& sequence, KeyAndValueOf&& keyAndValueOf) {
  using Made = detail::MadeFrom<KeyAndValueOf, R>;
  Dictionary<decltype(Made::first), decltype(Made::second)> result;
  for (auto&& element : sequence) {
    auto [key, value] = std::invoke(keyAndValueOf, element);
    result.insert_or_assign(std::move(key), std::move(value));
  }
  return result;
}

/// The map from the key that the block gives to the element; a later equal key overwrites.
template <std::ranges::input_range R, GivesKeyFor<R> KeyOf>
Dictionary<detail::MadeFrom<KeyOf, R>, ElementOf<R>> dictionaryWithIndex(R&& sequence,
                                                                         KeyOf&& keyOf) {
  Dictionary<detail::MadeFrom<KeyOf, R>, ElementOf<R>> result;
  for (auto&& element : sequence) {
    result.insert_or_assign(std::invoke(keyOf, element), ElementOf<R>(element));
  }
  return result;
}

/// The set of the values that the block gives, absent ones left out.
template <std::ranges::input_range R, GivesOptionalFor<R> ValueOf>
Set<typename detail::MadeFrom<ValueOf, R>::value_type> createSet(R&& sequence, ValueOf&& valueOf) {
  Set<typename detail::MadeFrom<ValueOf, R>::value_type> result;
  for (auto&& element : sequence) {
    if (auto value = std::invoke(valueOf, element); value.has_value()) {
      result.insert(*std::move(value));
    }
  }
  return result;
}

/// The map from each key to the elements with that key, in their order.
template <std::ranges::input_range R, GivesKeyFor<R> KeyOf>
Dictionary<detail::MadeFrom<KeyOf, R>, std::vector<ElementOf<R>>> group(R&& sequence,
                                                                        KeyOf&& keyOf) {
  Dictionary<detail::MadeFrom<KeyOf, R>, std::vector<ElementOf<R>>> result;
  for (auto&& element : sequence) result[std::invoke(keyOf, element)].push_back(element);
  return result;
}

/// `group` as a list of pairs of key and elements, keys in the order of their first appearance.
template <std::ranges::input_range R, GivesKeyFor<R> KeyOf>
std::vector<std::pair<detail::MadeFrom<KeyOf, R>, std::vector<ElementOf<R>>>> groupAsTuple(
    R&& sequence, KeyOf&& keyOf) {
  using Key = detail::MadeFrom<KeyOf, R>;
  std::vector<std::pair<Key, std::vector<ElementOf<R>>>> result;
  Dictionary<Key, std::size_t> places;
  for (auto&& element : sequence) {
    const auto [place, isNew] = places.try_emplace(std::invoke(keyOf, element), result.size());
    if (isNew) result.push_back({place->first, {}});
    result[place->second].second.push_back(element);
  }
  return result;
}

/// The map from each key to the first element with that key.
template <std::ranges::input_range R, GivesKeyFor<R> KeyOf>
Dictionary<detail::MadeFrom<KeyOf, R>, ElementOf<R>> oneEach(R&& sequence, KeyOf&& keyOf) {
  Dictionary<detail::MadeFrom<KeyOf, R>, ElementOf<R>> result;
  for (auto&& element : sequence) result.try_emplace(std::invoke(keyOf, element), element);
  return result;
}

/// Each element that was seen before, once for each repeated occurrence, in order.
template <std::ranges::input_range R>
  requires Hashable<ElementOf<R>>
std::vector<ElementOf<R>> duplicates(R&& sequence) {
  std::vector<ElementOf<R>> result;
  Set<ElementOf<R>> seen;
  for (auto&& element : sequence) {
    if (!seen.insert(element).second) result.push_back(element);
  }
  return result;
}

/// The sequence without repeats: of equal elements the first one stays in its place.
template <std::ranges::input_range R>
  requires Hashable<ElementOf<R>>
std::vector<ElementOf<R>> uniqArray(R&& sequence) {
  std::vector<ElementOf<R>> result;
  Set<ElementOf<R>> seen;
  for (auto&& element : sequence) {
    if (seen.insert(element).second) result.push_back(element);
  }
  return result;
}

}  // namespace tolvanite
