// A place in source code, by default that of the caller.
//
//   void note(std::string_view text, CallerPosition position = std::source_location::current());
//   note("here");
//   note("there", CallerPosition("src/Track.cpp", 12));
#pragma once

#include <source_location>
#include <string_view>

#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// The texts are borrowed: a position is made for a call and not kept.
struct CallerPosition {
  /// The position that the compiler tells.
  constexpr CallerPosition(std::source_location location)
      : file(location.file_name()),
        line(location.line()),
        function(location.function_name()),
        column(location.column()) {}
  /// A position of the caller's own words; the file need not exist.
  constexpr CallerPosition(std::string_view fileText, Int lineNumber,
                           std::string_view functionText = {}, Int columnNumber = 0)
      : file(fileText), line(lineNumber), function(functionText), column(columnNumber) {}

  /// The path of the file.
  std::string_view file;
  /// The line in it, from 1 on.
  Int line;
  /// The function as the compiler writes it, with its parameters.
  std::string_view function;
  /// The column in the line; no line format shows it.
  Int column;
};

}  // namespace tolvanite
