// Where the extension of a file's name begins.
#pragma once

#include <cstddef>
#include <string_view>

namespace tolvanite::detail {

/// The place of the "." that begins the extension of a name, else npos.
inline std::size_t extensionDot(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  // A name that ends in a dot has no extension, nor have names of leading dots alone, as "..".
  if (dot == std::string_view::npos || dot + 1 == name.size()) return std::string_view::npos;
  return name.find_first_not_of('.') < dot ? dot : std::string_view::npos;
}

}  // namespace tolvanite::detail
