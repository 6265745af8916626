// Any value with a name beside it, for lists that show the name and use the value.
//
//   const tolvanite::NamedThingy<Int> zoom(200, "double size");
#pragma once

#include <concepts>
#include <string>
#include <utility>

namespace tolvanite {

template <typename T>
class NamedThingy {
 public:
  NamedThingy(T thingy, std::string named) : name_(std::move(named)), thingy_(std::move(thingy)) {}

  const std::string& name() const { return name_; }
  const T& thingy() const { return thingy_; }

  /// The name.
  const std::string& description() const { return name_; }

  /// Equal names and equal values.
  friend bool operator==(const NamedThingy&, const NamedThingy&)
    requires std::equality_comparable<T>
  = default;

 private:
  std::string name_;
  T thingy_;
};

}  // namespace tolvanite
