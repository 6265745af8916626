// What the collections ask of their elements. The keyed ones: a read-only `key`, hashable and
// ordered, that identifies the element while the rest of its content may change. The sets and the
// unique array: an equality and a hash that agrees with it. The views: some of both.
//
//   struct Track {
//     std::string key;    // or a member function key()
//     std::string title;
//     bool operator==(const Track& other) const { return key == other.key; }
//   };
//   static_assert(tolvanite::EquatableKeyedElement<Track>);
//
//   template <>
//   struct std::hash<Track> {  // outside of any namespace, before the first collection of tracks
//     std::size_t operator()(const Track& track) const noexcept {
//       return std::hash<std::string>{}(track.key);
//     }
//   };
//   static_assert(tolvanite::HashableEquatableKeyedElement<Track>);
//
// Elements may also be held by smart pointer: key, equality and hash are those of the pointee.
//
// Equality must imply equal keys, and should be the equality of the keys; the hash is to be made of
// nothing that the equality does not look at. The views of a `Kerray` find an updated element again
// by its equality: one that covers content that changes makes the first update end the process in a
// view that is sorted only, and leaves the old element behind in one that is filtered. In a set, an
// element that is not equal to its old self is a further element.
#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <type_traits>

namespace tolvanite {

namespace detail {

template <typename T>
concept HasKeyFunction = requires(const T& element) { element.key(); };

template <typename T>
concept HasKeyField = requires(const T& element) { element.key; } && !HasKeyFunction<T>;

template <typename T>
concept PointsToElement = !HasKeyFunction<T> && !HasKeyField<T> && requires(const T& pointer) {
  *pointer;
  { pointer == nullptr } -> std::convertible_to<bool>;
};

// Pointers have a hash of their own, which is not the one that is meant.
template <typename T>
concept IsHashable = !PointsToElement<T> && requires(const T& element) {
  { std::hash<T>{}(element) } -> std::convertible_to<std::size_t>;
};

// Two such elements in braces make one text of their first two arguments, too, which ends badly.
template <typename T>
concept IsText = std::convertible_to<const char*, T>;

}  // namespace detail

/// How the collections see an element of type T. To be specialised for a type whose key is told by
/// other means than a member `key`.
template <typename T>
struct ElementTraits {
  /// The key of an element, or of what a pointer points to.
  /// @{
  static decltype(auto) key(const T& element)
    requires detail::HasKeyFunction<T>
  {
    return element.key();
  }
  static const auto& key(const T& element)
    requires detail::HasKeyField<T>
  {
    return element.key;
  }
  static decltype(auto) key(const T& pointer)
    requires detail::PointsToElement<T>
  {
    return ElementTraits<std::remove_cvref_t<decltype(*pointer)>>::key(*pointer);
  }
  /// @}

  /// Whether two elements are the same one, or what two pointers point to.
  static bool equal(const T& a, const T& b)
    requires std::equality_comparable<T>
  {
    if constexpr (detail::PointsToElement<T>) {
      return a == b || (a != nullptr && b != nullptr && *a == *b);
    } else {
      return a == b;
    }
  }

  /// In accordance with the equality: the element's own hash.
  static std::size_t hash(const T& element)
    requires detail::IsHashable<T>
  {
    return std::hash<T>{}(element);
  }
  /// Without a hash of its own an element is hashed by its key: equal elements have equal keys.
  static std::size_t hash(const T& element)
    requires(!detail::IsHashable<T> && (detail::HasKeyFunction<T> || detail::HasKeyField<T>))
  {
    return std::hash<std::remove_cvref_t<decltype(key(element))>>{}(key(element));
  }
  /// The hash of what a pointer points to.
  static std::size_t hash(const T& pointer)
    requires detail::PointsToElement<T>
  {
    if (pointer == nullptr) return 0;
    return ElementTraits<std::remove_cvref_t<decltype(*pointer)>>::hash(*pointer);
  }
};

/// The type of an element's key.
template <typename T>
using KeyType = std::remove_cvref_t<decltype(ElementTraits<T>::key(std::declval<const T&>()))>;

/// An element with a hashable and totally ordered key.
template <typename T>
concept KeyedElement = std::copyable<T> && requires(const T& element) {
  ElementTraits<T>::key(element);
  { std::hash<KeyType<T>>{}(ElementTraits<T>::key(element)) } -> std::convertible_to<std::size_t>;
} && std::totally_ordered<KeyType<T>>;

/// A keyed element with equality, which must imply equal keys.
template <typename T>
concept EquatableKeyedElement = KeyedElement<T> && requires(const T& a, const T& b) {
  { ElementTraits<T>::equal(a, b) } -> std::convertible_to<bool>;
};

/// An element with equality and a hash that agrees with it: what the set-shaped collections and the
/// unique array ask for.
template <typename T>
concept HashableElement = std::copyable<T> && requires(const T& a, const T& b) {
  { ElementTraits<T>::equal(a, b) } -> std::convertible_to<bool>;
  { ElementTraits<T>::hash(a) } -> std::convertible_to<std::size_t>;
};

/// A keyed element with equality and a hash that agrees with it, if only that of the key.
template <typename T>
concept HashableEquatableKeyedElement = EquatableKeyedElement<T> && HashableElement<T>;

}  // namespace tolvanite
