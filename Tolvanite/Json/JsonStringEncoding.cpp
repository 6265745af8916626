#include <Tolvanite/Json/JsonStringEncoding.h>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Json/detail/Escaping.h>
#include <Tolvanite/Json/detail/StringEncoding.h>

namespace tolvanite {

namespace {

bool isPartOfSequence(char byte) { return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80; }

// Whether a byte may begin a character that joins with an ASCII one beside it. There are none
// below U+0300.
bool mayJoin(char lead) { return static_cast<unsigned char>(lead) >= 0xcc; }

// Whether the quote or backslash at a place is a character together with what stands beside it.
bool isJoined(std::string_view text, std::size_t place) {
  constexpr std::size_t longestSequence = 4;
  std::size_t start = place;
  while (start > 0 && place - start < longestSequence - 1 && isPartOfSequence(text[start - 1])) {
    --start;
  }
  if (start < place && start > 0 && mayJoin(text[start - 1]) &&
      characterCount(text.substr(start - 1, place - start + 2)) == 1) {
    return true;
  }
  std::size_t end = place + 1;
  if (end == text.size() || !mayJoin(text[end])) return false;
  do {
    ++end;
  } while (end < text.size() && end - place <= longestSequence && isPartOfSequence(text[end]));
  return characterCount(text.substr(place, end - place)) == 1;
}

// The escape of a character; empty for one that stays as it is.
std::string_view escapeOf(std::string_view text, std::size_t place) {
  switch (text[place]) {
    case '\t':
      return "\\t";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\b':
      return "\\u0008";
    case '\f':
      return "\\u000c";
    case '"':
      return isJoined(text, place) ? "" : "\\\"";
    case '\\':
      return isJoined(text, place) ? "" : "\\\\";
    default:
      return "";
  }
}

}  // namespace

void detail::appendEncodedForJson(TextOut& out, std::string_view text, std::size_t start) {
  while (start < text.size()) {
    const std::string_view escape = escapeOf(text, start);
    if (text[start] == '\r' && start + 1 < text.size() && text[start + 1] == '\n') {
      out.append("\r\n");
      start += 2;
    } else if (escape.empty()) {
      out.append(text[start++]);
    } else {
      out.append(escape);
      ++start;
    }
    const std::size_t next = findEscape(text, start);
    out.append(text.substr(start, next - start));
    start = next;
  }
}

std::string stringEncodedForJson(std::string_view text) {
  const std::size_t first = text.find_first_of(JsonEscapeCharacterSet);
  std::string result(text.substr(0, first));
  if (first == std::string_view::npos) return result;
  detail::TextOut out(result);
  detail::appendEncodedForJson(out, text, first);
  return result;
}

}  // namespace tolvanite
