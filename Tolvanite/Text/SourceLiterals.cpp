#include <Tolvanite/Text/SourceLiterals.h>

#include <Tolvanite/Text/Replacing.h>

namespace tolvanite {

std::string stringLiteralEncoded(std::string_view text) {
  return stringByReplacingOccurrences(text, "\\", "\\\\");
}

std::string stringPreparedForStringLiteral(std::string_view text) {
  constexpr std::string_view escaped = "\"\\\n\r\t", letters = "\"\\nrt";
  std::string result;
  result.reserve(text.size());
  for (const char byte : text) {
    const std::size_t place = escaped.find(byte);
    if (place == std::string_view::npos) {
      result += byte;
    } else {
      result += {'\\', letters[place]};
    }
  }
  return result;
}

}  // namespace tolvanite
