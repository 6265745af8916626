// A host's values as the raw elements that a Json is made of. Texts, numbers, times, file locations
// and the standard containers, optionals, smart pointers and variants of such join by themselves; a
// host's own type joins by giving `jsonObjectValue`.
//
//   struct Track {
//     std::string title;
//     std::optional<int> year;
//     std::vector<std::string> tags;
//     AbsoluteTime added;
//     ManagedObject jsonObjectValue() const {
//       return ManagedDictionary{{"title", title},
//                                {"year", year},
//                                {"tags", makeJsonNsArray(tags)},
//                                {"added", tolvanite::jsonObjectValue(added)}};
//     }
//   };
//   const std::vector<Track> tracks = load();
//   makeJsonText(tracks);                             their text, at once
//   JsonWriter::stringFrom(makeJsonNsArray(tracks));  the same by way of a raw list
//   makeJson(std::map<std::string, std::optional<Int>>{{"a", 1}, {"b", {}}}, true);   {"a": 1}
#pragma once

#include <chrono>
#include <concepts>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <ranges>
#include <source_location>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/FileLocation.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/detail/DynamicCast.h>
#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/JsonWriter.h>
#include <Tolvanite/Json/ManagedObject.h>
#include <Tolvanite/Json/detail/IsoDate.h>
#include <Tolvanite/Json/detail/MappingScope.h>

namespace tolvanite {

namespace detail {

template <typename T>
concept GivesJsonObjectValue = requires(const T& value) {
  { value.jsonObjectValue() } -> std::convertible_to<ManagedObject>;
};

template <typename T>
concept JsonTime =
    std::same_as<T, AbsoluteTime> || std::same_as<T, std::chrono::system_clock::time_point>;

template <typename T>
concept JsonLocation = std::same_as<T, FileLocation> || std::same_as<T, std::filesystem::path>;

/// What may be absent: optionals and pointers.
template <typename T>
concept MaybeAbsent = (OptionalLike<T> || PointerLike<T>) && !GivesJsonObjectValue<T>;

template <typename T>
concept JsonContainer = (ManagedRange<T> || MapLike<T>) && !ManagedText<T>;

}  // namespace detail

/// What has a raw form. A container of any kind has one; what it may hold, only mapping it tells.
template <typename T>
concept TolvaniteJsonValue =
    detail::GivesJsonObjectValue<T> || detail::JsonTime<T> || detail::JsonLocation<T> ||
    (std::constructible_from<ManagedObject, const T&> && !detail::MaybeAbsent<T>) ||
    detail::JsonContainer<T>;

/// The raw form of one value: a text, a number of the value's kind, a time as
/// "1970-01-01T00:00:00.500Z" to the nearest millisecond, a file location as its absolute string,
/// and a container with its elements as they are.
template <TolvaniteJsonValue T>
ManagedObject jsonObjectValue(const T& value) {
  if constexpr (detail::GivesJsonObjectValue<T>) {
    return value.jsonObjectValue();
  } else if constexpr (detail::JsonTime<T>) {
    return detail::isoText(AbsoluteTime(value));
  } else if constexpr (detail::JsonLocation<T>) {
    return FileLocation(value).absoluteString();
  } else {
    return ManagedObject::from(value);
  }
}

namespace detail {

template <typename T>
constexpr bool isJsonMappable() {
  if constexpr (OptionalLike<T> && !GivesJsonObjectValue<T>) {
    return isJsonMappable<std::remove_cvref_t<typename T::value_type>>();
  } else if constexpr (MaybeAbsent<T>) {
    return isJsonMappable<std::remove_cvref_t<decltype(*std::declval<const T&>())>>();
  } else if constexpr (isVariant<T>) {
    return []<typename... Cases>(std::type_identity<std::variant<Cases...>>) {
      return (isJsonMappable<Cases>() && ...);
    }(std::type_identity<T>());
  } else {
    return TolvaniteJsonValue<T> || std::same_as<T, std::monostate>;
  }
}

}  // namespace detail

/// What a sequence or map to be mapped may hold: a TolvaniteJsonValue, perhaps absent, or a choice
/// of such.
template <typename T>
concept MappableToJson = detail::isJsonMappable<T>();

template <typename Range>
  requires detail::ManagedRange<Range> && MappableToJson<std::ranges::range_value_t<const Range>>
ManagedArray jsonValuesMapSequence(const Range& values, bool discardNilValues);

template <detail::MapLike Map>
  requires detail::ManagedText<typename Map::key_type> && MappableToJson<typename Map::mapped_type>
ManagedDictionary jsonValuesMapDictionary(const Map& values, bool discardNilValues);

namespace detail {

template <typename Map>
concept MappableMap = MapLike<Map> && ManagedText<typename Map::key_type> &&
                      MappableToJson<typename Map::mapped_type>;
template <typename Range>
concept MappableSequence = !MapLike<Range> && ManagedRange<Range> &&
                           MappableToJson<std::ranges::range_value_t<const Range>>;

template <typename Container>
[[noreturn]] void failMapping(const char* kind, const Container& container) {
  fatalFailure("Bad " + std::string(kind) + "!!! type \"" + typeName<Container>() +
               "\":" + textFormOrTypeName(container));
}

/// Gives the raw form of one item to `take`; of an absent one the null marker, or nothing if those
/// are discarded.
template <typename T, typename Take>
void mapItem(const T& item, bool discardNilValues, const Take& take) {
  if constexpr (GivesJsonObjectValue<T>) {
    take(ManagedObject(item.jsonObjectValue()));
  } else if constexpr (MaybeAbsent<T>) {
    const bool isAbsent = [&] {
      if constexpr (OptionalLike<T>) {
        return !item.has_value();
      } else {
        return item == nullptr;
      }
    }();
    if (!isAbsent) {
      mapItem(*item, discardNilValues, take);
    } else if (!discardNilValues) {
      take(ManagedObject());
    }
  } else if constexpr (isVariant<T>) {
    std::visit([&](const auto& choice) { mapItem(choice, discardNilValues, take); }, item);
  } else if constexpr (ManagedNothing<T> || std::same_as<T, std::monostate>) {
    if (!discardNilValues) take(ManagedObject());
  } else if constexpr (!JsonContainer<T> || std::constructible_from<ManagedObject, const T&>) {
    take(jsonObjectValue(item));
  } else if constexpr (MappableMap<T>) {
    take(jsonValuesMapDictionary(item, discardNilValues));
  } else if constexpr (MappableSequence<T>) {
    take(jsonValuesMapSequence(item, discardNilValues));
  } else {
    failMapping(MapLike<T> ? "Dictionary" : "Array", item);
  }
}

}  // namespace detail

/// The raw list of a sequence's items in their order, containers in it mapped in the same way. An
/// absent item becomes the null marker, or is left out if `discardNilValues` holds. The elements of
/// a long list lie in one piece of memory, which is there as long as one of them. A container in it
/// whose elements can't be mapped is fatal: `Bad Array!!! type "TYPE":VALUE`, `Bad
/// Dictionary!!! type "TYPE":VALUE`.
template <typename Range>
  requires detail::ManagedRange<Range> && MappableToJson<std::ranges::range_value_t<const Range>>
ManagedArray jsonValuesMapSequence(const Range& values, bool discardNilValues) {
  std::size_t count = 0;
  if constexpr (std::ranges::sized_range<const Range>) {
    count = static_cast<std::size_t>(std::ranges::size(values));
  }
  ManagedArray result;
  result.reserve(static_cast<Int>(count));
  detail::MappingScope scope(count);
  const auto take = [&](ManagedObject object) {
    scope.adopt(object.cell());
    result.append(std::move(object));
  };
  for (const auto& item : values) {
    // vector<bool> hands out stand-ins for its elements.
    detail::mapItem<std::ranges::range_value_t<const Range>>(item, discardNilValues, take);
  }
  return scope.adopted(std::move(result));
}

/// The raw dictionary of a map with text keys, in the same way.
template <detail::MapLike Map>
  requires detail::ManagedText<typename Map::key_type> && MappableToJson<typename Map::mapped_type>
ManagedDictionary jsonValuesMapDictionary(const Map& values, bool discardNilValues) {
  ManagedDictionary result;
  for (const auto& [key, item] : values) {
    detail::mapItem(item, discardNilValues,
                    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): captured, and alive
                    [&](ManagedObject object) { result.set(key, std::move(object)); });
  }
  return result;
}

/// The raw list of a sequence; see `jsonValuesMapSequence`.
template <detail::MappableSequence Range>
ManagedArray makeJsonNsArray(const Range& values, bool discardNilValues = false) {
  return jsonValuesMapSequence(values, discardNilValues);
}

/// The raw dictionary of a map with text keys; see `jsonValuesMapSequence`.
template <detail::MappableMap Map>
ManagedDictionary makeJsonNsDictionary(const Map& values, bool discardNilValues = false) {
  return jsonValuesMapDictionary(values, discardNilValues);
}

/// The text that JsonWriter makes of the raw list of a sequence, with sorted keys. Only one item at
/// a time is mapped and kept, which takes little memory and time. Throws a JsonWriter::Errur.
template <detail::MappableSequence Range>
std::string makeJsonText(const Range& values, bool discardNilValues = false,
                         Optional<std::string> indentString = std::string("\t")) {
  JsonWriter writer(std::move(indentString));
  JsonWriter::List list(writer);
  const detail::OneByOneScope scope;
  const auto take = [&](const ManagedObject& object) { list.append(object); };
  for (const auto& item : values) {
    detail::mapItem<std::ranges::range_value_t<const Range>>(item, discardNilValues, take);
    scope.reuse();
  }
  list.end();
  return std::move(writer).dest();
}

/// A Json of a sequence, of a map with text keys.
/// @{
template <detail::MappableSequence Range>
Json makeJson(const Range& values, bool discardNilValues = false) {
  return makeJsonNsArray(values, discardNilValues);
}
template <detail::MappableMap Map>
Json makeJson(const Map& values, bool discardNilValues = false) {
  return makeJsonNsDictionary(values, discardNilValues);
}
/// @}

}  // namespace tolvanite
