// A sort order with a name: what every sorted collection and sorted view takes. The name, `code`,
// is the order's identity, so that a collection can tell a new order from the one that it has.
//
//   const tolvanite::NamedSortBlock<Track> byTitle{
//       "title", [](const Track& a, const Track& b) { return a.title < b.title; }};
//   view->setSortBlock(byTitle.reversed());  // its code is "title_reversed"
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A sort order of `T` that is known by its `code`.
template <typename T>
struct NamedSortBlock {
  /// Whether the first argument stands before the second.
  using SortBlock = Block<bool(const T&, const T&)>;

  /// The name of the order and its identity.
  std::string code;
  /// The order itself.
  SortBlock sortBlock;
  /// Marks a reversed order. The sorted collections read only `sortBlock`.
  bool reverse = false;

  /// The order with the inverted answers: "_reversed" is appended to the code and `reverse` is
  /// negated. It is the answer that is inverted, deliberately, and not the arguments that are
  /// swapped: the reverse of "less than" is "greater than or equal", under which two equal elements
  /// stand before each other. The sorted collections cope with that.
  NamedSortBlock reversed() const {
    return {code + "_reversed",
            [sortBlock = sortBlock](const T& a, const T& b) { return !sortBlock(a, b); }, !reverse};
  }

  /// The code.
  const std::string& description() const { return code; }

  /// Equal codes make equal orders; the blocks and `reverse` are not compared.
  friend bool operator==(const NamedSortBlock& a, const NamedSortBlock& b) {
    return a.code == b.code;
  }
  friend std::ostream& operator<<(std::ostream& out, const NamedSortBlock& order) {
    return out << order.code;
  }
};

}  // namespace tolvanite

/// In accordance with its equality, the hash of the code.
template <typename T>
struct std::hash<tolvanite::NamedSortBlock<T>> {
  std::size_t operator()(const tolvanite::NamedSortBlock<T>& order) const noexcept {
    return std::hash<std::string>{}(order.code);
  }
};
