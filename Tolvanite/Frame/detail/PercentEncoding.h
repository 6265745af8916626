// Texts as parts of a URL.
#pragma once

#include <string>
#include <string_view>

namespace tolvanite::detail {

constexpr bool isAsciiLetterOrDigit(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9');
}

/// The text with each byte that is not plain as "%" and two upper-case hexadecimal digits. Plain
/// are the ASCII letters and digits and what stands in `plainMarks`.
inline std::string percentEncoded(std::string_view text, std::string_view plainMarks) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  result.reserve(text.size());
  for (const char byte : text) {
    if (isAsciiLetterOrDigit(byte) || plainMarks.find(byte) != std::string_view::npos) {
      result += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      result += {'%', digits[value / 16], digits[value % 16]};
    }
  }
  return result;
}

}  // namespace tolvanite::detail
