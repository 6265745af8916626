// Two values of one type that belong together.
//
//   const tolvanite::Pair<Int> bounds(3, 8);
//   Int width = bounds.b() - bounds.a();
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <utility>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/TextForm.h>

namespace tolvanite {

/// Two values, `a` and `b`.
template <typename T>
class Pair {
 public:
  /// Takes both, in this order.
  constexpr Pair(T a, T b) : a_(std::move(a)), b_(std::move(b)) {}

  /// The values, which stay.
  /// @{
  constexpr const T& a() const { return a_; }
  constexpr const T& b() const { return b_; }
  /// @}

  /// As that of a standard pair: "(3, 8)", texts between double quotes.
  std::string description() const
    requires HasTextForm<T>
  {
    return textForm(std::pair<const T&, const T&>(a_, b_));
  }

  friend constexpr bool operator==(const Pair&, const Pair&) = default;
  /// By `a`, then by `b`.
  friend constexpr auto operator<=>(const Pair&, const Pair&) = default;

  friend std::ostream& operator<<(std::ostream& out, const Pair& pair)
    requires HasTextForm<T>
  {
    return out << pair.description();
  }

 private:
  T a_;
  T b_;
};

}  // namespace tolvanite

template <tolvanite::Hashable T>
struct std::hash<tolvanite::Pair<T>> {
  std::size_t operator()(const tolvanite::Pair<T>& pair) const {
    return std::hash<T>{}(pair.a()) * 31 + std::hash<T>{}(pair.b());
  }
};
