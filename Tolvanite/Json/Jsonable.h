// What a host's types promise that go into JSON and come back, in three generations that differ in
// what they are given on the way.
//
//   struct Point {
//     double x, y;
//     Json asJson() const { return {{"x", x}, {"y", y}}; }
//     static Optional<Point> fromJson(const Json& json);
//   };
//   static_assert(Jsonable<Point>);
//
// The library itself calls none of these: they are for generic code of the host's own.
#pragma once

#include <concepts>
#include <string_view>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Json/Json.h>

namespace tolvanite {

/// A type whose objects are made from a Json; absent if it does not say one.
template <typename T>
concept JsonableFactory = requires(const Json& json) {
  { T::fromJson(json) } -> std::convertible_to<Optional<T>>;
};

/// A type whose objects also give themselves as a Json.
template <typename T>
concept Jsonable = JsonableFactory<T> && requires(const T& object) {
  { object.asJson() } -> std::convertible_to<Json>;
};

/// The second generation takes a context of the host's choice, `T::JsonContext`, such as the
/// document that the object belongs to.
template <typename T>
concept JsonableFactory2 = requires(const Json& json, typename T::JsonContext& context) {
  { T::fromJson(json, context) } -> std::convertible_to<Optional<T>>;
};

/// Objects of such a type give themselves as a Json with the context at hand.
template <typename T>
concept Jsonable2 =
    JsonableFactory2<T> && requires(const T& object, typename T::JsonContext& context) {
      { object.asJson(context) } -> std::convertible_to<Json>;
    };

/// The third generation is told the key, too, under which the object stands in its parent.
template <typename T>
concept JsonableFactory3 =
    requires(const Json& json, std::string_view key, typename T::JsonContext& context) {
      { T::fromJson(json, key, context) } -> std::convertible_to<Optional<T>>;
    };

/// Objects of such a type are told the key when they give themselves as a Json.
template <typename T>
concept Jsonable3 = JsonableFactory3<T> && requires(const T& object, std::string_view key,
                                                    typename T::JsonContext& context) {
  { object.asJson(key, context) } -> std::convertible_to<Json>;
};

}  // namespace tolvanite
