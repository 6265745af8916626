// Casts an optional value of unknown type, keeping "nothing there" apart from "of another type".
//
//   Optional<std::any> setting = read("width");
//   Optional<Int> width = optionalCast<Int>(setting);   // absent stays absent, a text is fatal
#pragma once

#include <optional>
#include <source_location>
#include <string>
#include <utility>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/detail/DynamicCast.h>

namespace tolvanite {

namespace detail {

template <typename Wanted, typename Value>
Optional<Wanted> castPresent(Value&& value, std::source_location location) {
  if (std::optional<Wanted> cast = dynamicCast<Wanted>(std::forward<Value>(value))) {
    return Optional<Wanted>(std::in_place, *std::move(cast));
  }
  fatalFailure("optionalCast<" + typeName<Wanted>() +
                   ">(instanceSome) failed. Is of type: " + dynamicTypeName(value),
               location);
}

}  // namespace detail

/// The value as a `Wanted` by its dynamic type, as `Optional::forcedCast` casts; absent when
/// absent. Fatal when present and of another type: "optionalCast<Wanted>(instanceSome) failed. Is
/// of type: TYPE". The value of a temporary is moved out.
/// @{
template <typename Wanted, typename From>
Optional<Wanted> optionalCast(const std::optional<From>& value,
                              std::source_location location = std::source_location::current()) {
  if (!value.has_value()) return std::nullopt;
  return detail::castPresent<Wanted>(*value, location);
}
template <typename Wanted, typename From>
Optional<Wanted> optionalCast(std::optional<From>&& value,
                              std::source_location location = std::source_location::current()) {
  if (!value.has_value()) return std::nullopt;
  return detail::castPresent<Wanted>(*std::move(value), location);
}
/// @}

}  // namespace tolvanite
