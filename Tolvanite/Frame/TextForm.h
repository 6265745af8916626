// The text form of a value: what messages, descriptions and tables show of it.
//
//   textForm(3)                                    "3"
//   textForm(std::vector<std::string>{"a", "b"})   "["a", "b"]"
//   textForm(std::optional<int>{})                 "nil"
//
// A type gives its text form by a member `description()`, else by `operator<<`. Built in are
// numbers, truth values, texts, optionals, pointers (that of the pointee, or "nil"), pairs and
// tuples, ranges and maps, and exceptions by their `what()`. Texts inside of another value stand
// between double quotes.
#pragma once

#include <concepts>
#include <cstdlib>
#include <exception>
#include <memory>
#include <optional>
#include <ostream>
#include <ranges>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <typeinfo>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

namespace detail {

// The forms of numbers live in one place, so that users do not compile them again and again.
TOLVANITE_EXPORT std::string integerText(long long value);
TOLVANITE_EXPORT std::string integerText(unsigned long long value);
TOLVANITE_EXPORT std::string floatingText(double value);
TOLVANITE_EXPORT std::string floatingText(float value);
TOLVANITE_EXPORT std::string readableTypeName(const std::type_info& type);

template <typename T>
concept Describes = requires(const T& value) {
  { value.description() } -> std::convertible_to<std::string>;
};

template <typename T>
concept TextLike = std::convertible_to<const T&, std::string_view> && !std::is_null_pointer_v<T>;

// The text of a TextLike; absent for a null pointer to characters.
template <TextLike T>
std::optional<std::string> textIn(const T& value) {
  if constexpr (std::is_pointer_v<T>) {
    if (value == nullptr) return std::nullopt;
  }
  return std::string(std::string_view(value));
}

template <typename T>
inline constexpr bool isOptional = false;
template <typename T>
  requires std::derived_from<T, std::optional<typename T::value_type>>
inline constexpr bool isOptional<T> = true;

template <typename T>
concept OptionalLike = requires { typename T::value_type; } && isOptional<T>;

template <typename T>
concept PointerLike = requires(const T& value) {
  *value;
  { value == nullptr } -> std::convertible_to<bool>;
} && !TextLike<T> && !std::is_void_v<std::remove_pointer_t<T>>;

template <typename T>
concept TupleLike = requires { std::tuple_size<T>::value; } && !std::ranges::range<T>;

template <typename T>
concept Streams = requires(std::ostream& out, const T& value) { out << value; };

template <typename T>
concept MapLike = std::ranges::range<T> && requires { typename T::mapped_type; };

template <typename T>
struct TextFormOf;

}  // namespace detail

/// Whether a type has a text form.
template <typename T>
concept HasTextForm = detail::TextFormOf<std::remove_cvref_t<T>>::exists;

/// The text form of `value`.
template <HasTextForm T>
std::string textForm(const T& value) {
  return detail::TextFormOf<T>::text(value);
}

/// The name of a type as a person would write it: a std::string is no std::basic_string of three
/// parameters, and standard allocators are left out.
template <typename T>
std::string typeName() {
  return detail::readableTypeName(typeid(T));
}

namespace detail {

template <typename T>
constexpr bool hasTextForm() {
  if constexpr (Describes<T> || TextLike<T> || std::is_arithmetic_v<T> ||
                std::is_null_pointer_v<T>) {
    return true;
  } else if constexpr (OptionalLike<T>) {
    return TextFormOf<std::remove_cvref_t<typename T::value_type>>::exists;
  } else if constexpr (PointerLike<T>) {
    return TextFormOf<std::remove_cvref_t<decltype(*std::declval<const T&>())>>::exists;
  } else if constexpr (Streams<T> || std::derived_from<T, std::exception>) {
    return true;
  } else if constexpr (std::ranges::input_range<const T>) {
    using Value = std::remove_cvref_t<std::ranges::range_reference_t<const T>>;
    // A range of itself, as a path is, has no end.
    if constexpr (std::same_as<Value, T>) {
      return false;
    } else {
      return TextFormOf<Value>::exists;
    }
  } else if constexpr (TupleLike<T>) {
    return []<typename... Parts>(std::type_identity<std::tuple<Parts...>>) {
      return (TextFormOf<std::remove_cvref_t<Parts>>::exists && ...);
    }(std::type_identity<decltype(std::tuple_cat(std::declval<const T&>()))>{});
  } else {
    return false;
  }
}

// The form inside of a container: texts are quoted.
template <typename T>
std::string innerText(const T& value) {
  if constexpr (OptionalLike<T>) {
    return value.has_value() ? innerText(*value) : std::string("nil");
  } else if constexpr (TextLike<T> && !Describes<T>) {
    const auto text = textIn(value);
    return text.has_value() ? "\"" + *text + "\"" : std::string("nil");
  } else {
    return TextFormOf<T>::text(value);
  }
}

template <typename Range>
std::string listText(const Range& range) {
  std::string result = "[";
  bool first = true;
  for (const auto& element : range) {
    if (!first) result += ", ";
    first = false;
    if constexpr (MapLike<Range>) {
      result += innerText(element.first) + ": " + innerText(element.second);
    } else {
      // vector<bool> hands out stand-ins for its elements.
      result += innerText<std::ranges::range_value_t<const Range>>(element);
    }
  }
  return result + "]";
}

template <typename Tuple>
std::string tupleText(const Tuple& tuple) {
  return std::apply(
      [](const auto&... parts) {
        std::string result = "(";
        bool first = true;
        (((result += first ? "" : ", "), (first = false), (result += innerText(parts))), ...);
        return result + ")";
      },
      tuple);
}

template <typename T>
struct TextFormOf {
  static constexpr bool exists = hasTextForm<T>();

  static std::string text(const T& value)
    requires exists
  {
    if constexpr (Describes<T>) {
      return value.description();
    } else if constexpr (TextLike<T>) {
      return textIn(value).value_or("nil");
    } else if constexpr (std::is_null_pointer_v<T>) {
      return "nil";
    } else if constexpr (std::same_as<T, bool>) {
      return value ? "true" : "false";
    } else if constexpr (std::same_as<T, char>) {
      return std::string(1, value);
    } else if constexpr (std::same_as<T, float>) {
      return floatingText(value);
    } else if constexpr (std::floating_point<T>) {
      return floatingText(static_cast<double>(value));
    } else if constexpr (std::signed_integral<T>) {
      return integerText(static_cast<long long>(value));
    } else if constexpr (std::unsigned_integral<T>) {
      return integerText(static_cast<unsigned long long>(value));
    } else if constexpr (OptionalLike<T>) {
      return value.has_value() ? textForm(*value) : std::string("nil");
    } else if constexpr (PointerLike<T>) {
      return value == nullptr ? std::string("nil") : textForm(*value);
    } else if constexpr (Streams<T>) {
      std::ostringstream out;
      out << value;
      return std::move(out).str();
    } else if constexpr (std::derived_from<T, std::exception>) {
      return value.what();
    } else if constexpr (std::ranges::input_range<const T>) {
      return listText(value);
    } else {
      return tupleText(value);
    }
  }
};

/// What a message shows of a value of any type: its text form, else the name of its type.
template <typename T>
std::string textFormOrTypeName(const T& value) {
  if constexpr (HasTextForm<T>) {
    return textForm(value);
  } else if constexpr (OptionalLike<T>) {
    return value.has_value() ? textFormOrTypeName(*value) : std::string("nil");
  } else {
    static_cast<void>(value);
    return typeName<T>();
  }
}

}  // namespace detail

}  // namespace tolvanite
