// Replacing texts within a text, byte for byte and from left to right.
//
//   stringByReplacingOccurrences("a-b-c", "-", "+")                       "a+b+c"
//   stringByReplacingOccurrences("ab", {{"a", "b"}, {"b", "c"}})          "cc"
#pragma once

#include <initializer_list>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The text with `with` in place of each occurrence of `of`. What is replaced is not looked at
/// again. An empty `of` occurs nowhere.
TOLVANITE_EXPORT std::string stringByReplacingOccurrences(std::string_view text,
                                                          std::string_view of,
                                                          std::string_view with);

/// The text after a whole-text replacement for each pair of the map, key by value, each over the
/// result of the one before. They are made in the order of the map: when one may make or break what
/// another one looks for, take a map that has an order.
/// @{
template <std::ranges::input_range Map>
std::string stringByReplacingOccurrences(std::string_view text, const Map& map) {
  std::string result(text);
  for (const auto& [of, with] : map) result = stringByReplacingOccurrences(result, of, with);
  return result;
}
inline std::string stringByReplacingOccurrences(
    std::string_view text,
    std::initializer_list<std::pair<std::string_view, std::string_view>> map) {
  return stringByReplacingOccurrences<decltype(map)>(text, map);
}
/// @}

}  // namespace tolvanite
