// Casts by the type that a value turns out to have at run time.
#pragma once

#include <any>
#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <variant>

#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite::detail {

template <typename T>
inline constexpr bool isVariant = false;
template <typename... Alternatives>
inline constexpr bool isVariant<std::variant<Alternatives...>> = true;

template <typename T, typename Variant>
inline constexpr Int alternativeCount = 0;
template <typename T, typename... Alternatives>
inline constexpr Int alternativeCount<T, std::variant<Alternatives...>> =
    (Int{std::same_as<T, Alternatives>} + ... + 0);

template <typename T>
inline constexpr bool isSharedPointer = false;
template <typename T>
inline constexpr bool isSharedPointer<std::shared_ptr<T>> = true;

// Whether a pointer of type From may be turned into a To by dynamic_cast.
template <typename To, typename From>
concept DynamicallyCastable = requires(From pointer) { dynamic_cast<To>(pointer); };

// A part of a forwarded value, which may be moved from if the whole may.
template <typename Whole, typename Part>
decltype(auto) asPartOf(Part& part) {
  if constexpr (std::is_lvalue_reference_v<Whole>) {
    return (part);
  } else {
    return std::move(part);
  }
}

/// `value` as a `To`, or nothing. The same type always succeeds; a std::any and a std::variant give
/// what they hold; pointers and std::shared_ptr of classes are cast by the class of the object, and
/// a null pointer is an instance of no class. Every other cast fails: numbers are not converted.
template <typename To, typename From>
std::optional<To> dynamicCast(From&& value) {
  using Source = std::remove_cvref_t<From>;
  if constexpr (std::same_as<To, Source>) {
    return std::optional<To>(std::in_place, std::forward<From>(value));
  } else if constexpr (std::same_as<Source, std::any>) {
    auto* held = std::any_cast<To>(&value);
    return held == nullptr ? std::optional<To>()
                           : std::optional<To>(std::in_place, asPartOf<From>(*held));
  } else if constexpr (isVariant<Source>) {
    if constexpr (alternativeCount<To, Source> == 1) {
      if (auto* held = std::get_if<To>(&value)) return asPartOf<From>(*held);
    }
    return std::nullopt;
  } else if constexpr (isSharedPointer<Source> && isSharedPointer<To>) {
    if constexpr (DynamicallyCastable<typename To::element_type*, typename Source::element_type*>) {
      if (auto cast = std::dynamic_pointer_cast<typename To::element_type>(value)) return cast;
    }
    return std::nullopt;
  } else if constexpr (DynamicallyCastable<To, Source>) {
    const To cast = dynamic_cast<To>(value);
    return cast == nullptr ? std::optional<To>() : std::optional<To>(cast);
  } else {
    return std::nullopt;
  }
}

/// The name of the type that `value` turns out to have.
template <typename T>
std::string dynamicTypeName(const T& value) {
  if constexpr (std::same_as<T, std::any>) {
    return readableTypeName(value.type());
  } else if constexpr (isVariant<T>) {
    if (value.valueless_by_exception()) return typeName<T>();
    return std::visit([](const auto& held) { return dynamicTypeName(held); }, value);
  } else if constexpr (std::is_polymorphic_v<T>) {
    return readableTypeName(typeid(value));
  } else if constexpr (requires {
                         requires std::is_polymorphic_v<std::remove_cvref_t<decltype(*value)>>;
                       }) {
    return value == nullptr ? typeName<T>() : dynamicTypeName(*value);
  } else {
    return typeName<T>();
  }
}

}  // namespace tolvanite::detail
