// What the array and sequence helpers ask of their arguments, so that a wrong call is refused with
// the name of the rule that it breaks.
//
//   static_assert(tolvanite::IndexableArray<std::vector<int>>);
//   static_assert(!tolvanite::IndexableArray<std::list<int>>);
#pragma once

#include <concepts>
#include <functional>
#include <iterator>
#include <ranges>
#include <source_location>
#include <type_traits>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A range whose elements are reached by index in constant time: a vector, a deque, a span, the
/// array of a collection.
template <typename A>
concept IndexableArray = std::ranges::random_access_range<A> && std::ranges::sized_range<A>;

/// The type of the elements of an array or sequence.
template <std::ranges::range R>
using ElementOf = std::ranges::range_value_t<R>;

/// A block that answers whether a left value is ordered before a right one.
template <typename Order, typename Left, typename Right>
concept OrdersBefore = std::predicate<Order&, Left, Right>;

/// A block that accepts or rejects the elements of a sequence.
template <typename Accepts, typename R>
concept AcceptsElementsOf =
    std::ranges::input_range<R> && std::predicate<Accepts&, std::ranges::range_reference_t<R>>;

/// An element type whose elements can be asked whether they equal a value of another type.
template <typename T, typename Value>
concept ComparesEqualTo = requires(const T& element, const Value& value) {
  { element == value } -> std::convertible_to<bool>;
};

/// A value that can stand as a key in a `Set` or a `Dictionary`.
template <typename T>
concept Hashable = std::equality_comparable<T> && requires(const T& value) {
  { std::hash<T>{}(value) } -> std::convertible_to<std::size_t>;
};

namespace detail {

template <std::ranges::sized_range R>
Int countOf(R&& range) {
  return static_cast<Int>(std::ranges::size(range));
}

// The element at a known index of any indexable array.
template <IndexableArray A>
decltype(auto) elementAt(A&& array, Int index) {
  return std::ranges::begin(array)[static_cast<std::ranges::range_difference_t<A>>(index)];
}

// Fatal unless `index` is that of an element.
inline void requireIndex(Int index, Int count, std::source_location location) {
  if (index < 0 || index >= count) fatalIndexOutOfRange(index, count, location);
}

// Fatal unless `index` is that of an element or the end.
inline void requireGap(Int index, Int count, std::source_location location) {
  if (index < 0 || index > count) fatalIndexOutOfRange(index, count, location);
}

}  // namespace detail

}  // namespace tolvanite
