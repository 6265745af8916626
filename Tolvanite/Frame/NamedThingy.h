// Any value with a name beside it, for lists that show the name and use the value.
//
//   const tolvanite::NamedThingy<Int> zoom(200, "double size");
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <utility>

#include <Tolvanite/Frame/ArrayConcepts.h>

namespace tolvanite {

/// A value and its name.
template <typename T>
class NamedThingy {
 public:
  /// The value comes first.
  NamedThingy(T thingy, std::string named) : name_(std::move(named)), thingy_(std::move(thingy)) {}

  /// What to show.
  const std::string& name() const { return name_; }
  /// The value.
  const T& thingy() const { return thingy_; }

  /// The name.
  const std::string& description() const { return name_; }

  /// Equal names and equal values.
  friend bool operator==(const NamedThingy&, const NamedThingy&)
    requires std::equality_comparable<T>
  = default;
  friend std::ostream& operator<<(std::ostream& out, const NamedThingy& thingy) {
    return out << thingy.name_;
  }

 private:
  std::string name_;
  T thingy_;
};

}  // namespace tolvanite

template <tolvanite::Hashable T>
struct std::hash<tolvanite::NamedThingy<T>> {
  std::size_t operator()(const tolvanite::NamedThingy<T>& thingy) const {
    return std::hash<std::string>{}(thingy.name()) * 31 + std::hash<T>{}(thingy.thingy());
  }
};
