#include <fmt/format.h>

#include <Tolvanite/Frame/Unicode.h>

#include "Printing.h"

namespace demo {

std::string grouped(tolvanite::Int number) {
  std::string text = std::to_string(number);
  for (std::size_t i = text.size(); i > 3; i -= 3) text.insert(i - 3, 1, ',');
  return text;
}

std::string printable(std::string_view text) {
  std::string result;
  for (const std::string_view character : tolvanite::characters(text)) {
    const bool isControl = (character >= std::string_view("\0", 1) && character < " ") ||
                           (character >= "\x7f" && character <= "\u009f");
    if (!isControl && tolvanite::isValidUtf8(character)) {
      result += character;
      continue;
    }
    for (const char byte : character) {
      result += fmt::format("\\x{:02x}", static_cast<unsigned char>(byte));
    }
  }
  return result;
}

std::string Stopwatch::text() const { return fmt::format("{:.1f} ms", seconds() * 1000); }

}  // namespace demo
