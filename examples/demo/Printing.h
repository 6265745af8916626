// How the demo shows things on a console.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/Types.h>

namespace demo {

/// The number with a comma before every three digits.
std::string grouped(tolvanite::Int number);

/// The text with its control characters and what is no UTF-8 as "\x0a": a file's name may hold any
/// byte but two.
std::string printable(std::string_view text);

/// Time since it was made.
class Stopwatch {
 public:
  double seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }
  /// "12.3 ms".
  std::string text() const;

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace demo
