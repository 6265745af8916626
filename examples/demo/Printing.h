// How the demo shows things on a console.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/Types.h>

namespace demo {

/// The number with a comma before every three digits.
std::string grouped(tolvanite::Int number);

/// The text with its control characters, backslashes and bytes that are no UTF-8 as "\x0a": a
/// file's name may hold any byte but two. Different texts stay different.
std::string printable(std::string_view text);

/// Time since it was made.
class Stopwatch {
 public:
  double seconds() const;
  /// "12.3 ms" or "4.56 s".
  std::string text() const;

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// A line that is written over and over, ten times a second at most, and cleared at its end.
/// Nothing at all when standard output is no terminal.
class ProgressLine {
 public:
  ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine();

  void show(const tolvanite::Block<std::string()>& text);

 private:
  const bool isTerminal_;
  Stopwatch sinceShown_;
};

}  // namespace demo
