// Arrays in random order, by draws from the system's random source (see SystemRandom.h).
//
//   std::vector<Card> deck = fullDeck();
//   tolvanite::shuffle(deck);
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <iterator>
#include <limits>
#include <ranges>
#include <source_location>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/SystemRandom.h>

namespace tolvanite {

/// An array whose elements can be swapped in place.
template <typename A>
concept SwappableArray = IndexableArray<A> && std::permutable<std::ranges::iterator_t<A>>;

namespace detail {

// A random number from 0 to `bound` - 1. The source draws 32 bits at most; a higher bound is fatal.
inline Int drawBelow(Int bound, std::source_location location) {
  if (bound > Int{std::numeric_limits<std::uint32_t>::max()}) fatalOverflow(location);
  return Int{systemRandom().uniform(static_cast<std::uint32_t>(bound))};
}

template <SwappableArray A>
void swapAt(A&& array, Int a, Int b) {
  if (a == b) return;
  const auto begin = std::ranges::begin(array);
  using Offset = std::ranges::range_difference_t<A>;
  std::ranges::iter_swap(begin + static_cast<Offset>(a), begin + static_cast<Offset>(b));
}

template <std::ranges::input_range R>
std::vector<ElementOf<R>> arrayOf(R&& sequence) {
  std::vector<ElementOf<R>> result;
  std::ranges::copy(sequence, std::back_inserter(result));
  return result;
}

}  // namespace detail

/// Brings the elements into a random order, all orders equally likely, in place (Fisher and Yates).
/// Draws once for each element but the last: the distance to the element that takes the place,
/// below the count of the elements from there on.
template <SwappableArray A>
void shuffle(A&& array, std::source_location location = std::source_location::current()) {
  const Int count = detail::countOf(array);
  for (Int position = 0; count - position >= 2; ++position) {
    detail::swapAt(array, position, position + detail::drawBelow(count - position, location));
  }
}

/// The elements in a random order.
template <std::ranges::input_range R>
std::vector<ElementOf<R>> shuffled(
    R&& sequence, std::source_location location = std::source_location::current()) {
  auto result = detail::arrayOf(sequence);
  shuffle(result, location);
  return result;
}

/// `shuffleRounds` times, swaps as many pairs of random places as the array has elements; draws
/// twice for each swap, below the count. The orders are only about equally likely.
template <SwappableArray A>
void randomize(A&& array, Int shuffleRounds = 1,
               std::source_location location = std::source_location::current()) {
  const Int count = detail::countOf(array);
  if (count == 0) return;
  for (Int round = 0; round < shuffleRounds; ++round) {
    for (Int i = 0; i < count; ++i) {
      const Int a = detail::drawBelow(count, location);
      const Int b = detail::drawBelow(count, location);
      detail::swapAt(array, a, b);
    }
  }
}

/// `randomize` of a copy.
template <std::ranges::input_range R>
std::vector<ElementOf<R>> randomizedArray(
    R&& sequence, Int shuffleRounds = 1,
    std::source_location location = std::source_location::current()) {
  auto result = detail::arrayOf(sequence);
  randomize(result, shuffleRounds, location);
  return result;
}

}  // namespace tolvanite
