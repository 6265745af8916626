// The parts of descriptions and errors that the collections share.
#pragma once

#include <concepts>
#include <ostream>
#include <source_location>
#include <string>
#include <string_view>

#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite::detail {

/// The root of the collections that print their `description()`.
class Described {
 protected:
  ~Described() = default;
};

template <std::derived_from<Described> Collection>
std::ostream& operator<<(std::ostream& out, const Collection& collection) {
  return out << collection.description();
}

inline constexpr std::string_view noElements = "<none>";
inline constexpr std::string_view elementsWithoutText = "<not CustomStringConvertible>";

/// The text forms of the first `limit` elements with a separator between them.
template <typename Range>
std::string joinedTexts(const Range& elements, std::string_view separator,
                        Int limit = static_cast<Int>(-1)) {
  std::string result;
  Int count = 0;
  for (const auto& element : elements) {
    if (count == limit) break;
    if (count++ > 0) result += separator;
    result += textFormOrTypeName(element);
  }
  return result;
}

/// The elements part of a description: "<none>", the marker for elements without a text form, or
/// the text forms, of which at most `limit` are shown, followed by ", ..." where there are more.
template <typename Collection>
std::string elementsText(const Collection& collection, Int limit) {
  if (collection.isEmpty()) return std::string(noElements);
  if constexpr (HasTextForm<typename Collection::value_type>) {
    std::string result = joinedTexts(collection, ", ", limit);
    if (collection.count() > limit) result += ", ...";
    return result;
  } else {
    return std::string(elementsWithoutText);
  }
}

/// NAME(count: N, elements: ELEMENTS)
inline std::string countedDescription(std::string_view name, Int count, std::string_view elements) {
  return std::string(name) + "(count: " + integerText(static_cast<long long>(count)) +
         ", elements: " + std::string(elements) + ")";
}

/// Prints that an element cannot be removed, which is no error.
template <typename T>
void warnOfAbsent(const T& element) {
  printLine("WARNING! Element to remove not present: " + textFormOrTypeName(element));
}

/// Stops the process: "WHICH index N out of bounds."
[[noreturn]] inline void failOutOfBounds(
    std::string_view which, Int index,
    std::source_location location = std::source_location::current()) {
  fatalFailure(std::string(which) + " index " + integerText(static_cast<long long>(index)) +
                   " out of bounds.",
               location);
}

/// Stops the process: the parts of a collection disagree.
template <typename Key>
[[noreturn]] void failInconsistent(
    const Key& key, std::source_location location = std::source_location::current()) {
  fatalFailure("A key leads to an element that is not in the array: " + textFormOrTypeName(key),
               location);
}

}  // namespace tolvanite::detail
