// The mark of the truth value type, by which the optional helpers know an optional truth value.
//
//   Optional<bool>(true).toString("on", "off", "unknown")   "on"
#pragma once

#include <concepts>
#include <type_traits>

namespace tolvanite {

template <typename T>
concept ThisIsABoolean = std::same_as<std::remove_cv_t<T>, bool>;

}  // namespace tolvanite
