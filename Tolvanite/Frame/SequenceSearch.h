// The elements that a block accepts or rejects: the first, the last, where they stand, all of them.
//
//   const std::vector<Int> numbers{3, 8, 5, 6};
//   const auto isEven = [](Int number) { return number % 2 == 0; };
//   tolvanite::lastMatch(numbers, isEven);      // 6
//   tolvanite::firstPosition(numbers, isEven);  // 1
//   const auto [even, odd] = tolvanite::filterAndNotFilter(numbers, isEven);
#pragma once

#include <functional>
#include <iterator>
#include <ranges>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

namespace detail {

// The first accepted element and its offset, told to `found`; whether there is one.
template <typename R, typename Accepts, typename Found>
void findFirst(R&& sequence, Accepts& isAccepted, Found&& found) {
  Int position = 0;
  for (auto&& element : sequence) {
    if (std::invoke(isAccepted, element)) return found(position, element);
    ++position;
  }
}

// The last accepted element and its offset: looked for from the end where there is a way back.
template <typename R, typename Accepts, typename Found>
void findLast(R&& sequence, Accepts& isAccepted, Found&& found) {
  if constexpr (std::ranges::bidirectional_range<R> && std::ranges::sized_range<R> &&
                std::ranges::common_range<R>) {
    Int position = countOf(sequence);
    for (auto next = std::ranges::end(sequence); position > 0;) {
      --next;
      --position;
      auto&& element = *next;
      if (std::invoke(isAccepted, element)) return found(position, element);
    }
  } else {
    Int position = 0;
    for (auto&& element : sequence) {
      if (std::invoke(isAccepted, element)) found(position, element);
      ++position;
    }
  }
}

}  // namespace detail

/// The first element that the block accepts, or absent.
template <std::ranges::input_range R, AcceptsElementsOf<R> Accepts>
Optional<ElementOf<R>> firstMatch(R&& sequence, Accepts&& isAccepted) {
  Optional<ElementOf<R>> match;
  detail::findFirst(sequence, isAccepted, [&](Int, auto&& element) { match.emplace(element); });
  return match;
}

/// The last element that the block accepts, or absent. Where the sequence can be walked backward,
/// the block sees only the elements from the end up to the match.
template <std::ranges::input_range R, AcceptsElementsOf<R> Accepts>
Optional<ElementOf<R>> lastMatch(R&& sequence, Accepts&& isAccepted) {
  Optional<ElementOf<R>> match;
  detail::findLast(sequence, isAccepted, [&](Int, auto&& element) { match.emplace(element); });
  return match;
}

/// The offset of the first element that the block accepts, or absent.
template <std::ranges::input_range R, AcceptsElementsOf<R> Accepts>
Optional<Int> firstPosition(R&& sequence, Accepts&& isAccepted) {
  Optional<Int> match;
  detail::findFirst(sequence, isAccepted, [&](Int position, auto&&) { match = position; });
  return match;
}

/// The offset of the last element that the block accepts, or absent. It walks as `lastMatch` does.
template <std::ranges::input_range R, AcceptsElementsOf<R> Accepts>
Optional<Int> lastPosition(R&& sequence, Accepts&& isAccepted) {
  Optional<Int> match;
  detail::findLast(sequence, isAccepted, [&](Int position, auto&&) { match = position; });
  return match;
}

/// Whether the block rejects no element.
template <std::ranges::input_range R, AcceptsElementsOf<R> Accepts>
bool allMatch(R&& sequence, Accepts&& isAccepted) {
  for (auto&& element : sequence) {
    if (!std::invoke(isAccepted, element)) return false;
  }
  return true;
}

/// The accepted and the rejected elements, both in order.
template <std::ranges::input_range R, AcceptsElementsOf<R> Accepts>
std::pair<std::vector<ElementOf<R>>, std::vector<ElementOf<R>>> filterAndNotFilter(
    R&& sequence, Accepts&& isAccepted) {
  std::pair<std::vector<ElementOf<R>>, std::vector<ElementOf<R>>> result;
  for (auto&& element : sequence) {
    (std::invoke(isAccepted, element) ? result.first : result.second).push_back(element);
  }
  return result;
}

/// The rejected elements in order.
template <std::ranges::input_range R, AcceptsElementsOf<R> Accepts>
std::vector<ElementOf<R>> notFilter(R&& sequence, Accepts&& isAccepted) {
  std::vector<ElementOf<R>> result;
  for (auto&& element : sequence) {
    if (!std::invoke(isAccepted, element)) result.push_back(element);
  }
  return result;
}

}  // namespace tolvanite
