#include <cstdio>

#include <fmt/format.h>
#include <unistd.h>

#include <Tolvanite/Frame/Unicode.h>

#include "Printing.h"

namespace demo {

std::string grouped(tolvanite::Int number) {
  std::string text = std::to_string(number);
  const std::size_t digitsFrom = number < 0 ? 1 : 0;
  for (std::size_t i = text.size(); i > digitsFrom + 3; i -= 3) text.insert(i - 3, 1, ',');
  return text;
}

std::string printable(std::string_view text) {
  std::string result;
  for (const std::string_view character : tolvanite::characters(text)) {
    const auto first = static_cast<unsigned char>(character.front());
    const bool isAsciiControl = first < ' ' || first == 0x7f;
    const bool isOtherControl = character >= "\u0080" && character <= "\u009f";
    if (!isAsciiControl && !isOtherControl && character != "\\" &&
        tolvanite::isValidUtf8(character)) {
      result += character;
      continue;
    }
    for (const char byte : character) {
      result += fmt::format("\\x{:02x}", static_cast<unsigned char>(byte));
    }
  }
  return result;
}

double Stopwatch::seconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

std::string Stopwatch::text() const {
  const double time = seconds();
  return time < 1 ? fmt::format("{:.1f} ms", time * 1000) : fmt::format("{:.2f} s", time);
}

ProgressLine::ProgressLine() : isTerminal_(isatty(STDOUT_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
  if (isTerminal_) fmt::print("\r\033[K");
}

void ProgressLine::show(const tolvanite::Block<std::string()>& text) {
  if (!isTerminal_ || sinceShown_.seconds() < 0.1) return;
  sinceShown_ = Stopwatch();
  fmt::print("\r\033[K{}", text());
  std::fflush(stdout);
}

}  // namespace demo
