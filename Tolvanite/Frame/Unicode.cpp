#include <Tolvanite/Frame/Unicode.h>

#include <algorithm>
#include <concepts>
#include <memory>

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <Tolvanite/Frame/Fatal.h>

namespace tolvanite {

namespace {

constexpr UChar32 malformed = -1;

bool isAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

bool isAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char byte) { return isAscii(byte); });
}

// Reads one code point, or one malformed sequence, and moves `position` behind it.
UChar32 readCodePoint(std::string_view text, std::size_t& position) {
  // The longest sequence has four bytes, so that a window of them is enough and fits ICU's index.
  const std::string_view window = text.substr(position, 4);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(window.data());
  const auto length = static_cast<int32_t>(window.size());
  int32_t index = 0;
  UChar32 codePoint = 0;
  U8_NEXT(bytes, index, length, codePoint);
  position += static_cast<std::size_t>(index);
  return codePoint < 0 ? malformed : codePoint;
}

void requireSuccess(UErrorCode status, const char* aim) {
  if (U_FAILURE(status)) fatalFailure(std::string("Can't ") + aim + ": " + u_errorName(status));
}

// The end of the character at `start` if it can be told at once, else `start`: an ASCII character
// between others, a line end, a malformed sequence.
std::size_t plainCharacterEnd(std::string_view text, std::size_t start) {
  if (isAscii(text[start])) {
    const std::size_t end = start + 1;
    if (text[start] == '\r' && end < text.size() && text[end] == '\n') return end + 1;
    return end == text.size() || isAscii(text[end]) ? end : start;
  }
  std::size_t end = start;
  return readCodePoint(text, end) == malformed ? end : start;
}

// ICU's rules for extended grapheme clusters. Making the iterator is costly, so that each thread
// keeps its own.
icu::BreakIterator& characterBreaks() {
  thread_local const std::unique_ptr<icu::BreakIterator> breaks = [] {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::BreakIterator> result(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    requireSuccess(status, "split characters");
    return result;
  }();
  return *breaks;
}

// A stretch of well-formed text that is split on its own.
struct Stretch {
  std::size_t end;
  bool isCut;  // The text goes on behind it, maybe with more of the last character.
};

// The stretch from `start` on. It ends before a malformed sequence, in a longer run of ASCII at a
// place where a character surely ends, or with `limit` bytes.
Stretch stretchFrom(std::string_view text, std::size_t start, std::size_t limit) {
  constexpr int longRun = 16;
  int asciiRun = 0;
  std::size_t position = start;
  while (position < text.size()) {
    std::size_t next = position;
    const UChar32 codePoint = readCodePoint(text, next);
    if (codePoint == malformed) break;
    if (next - start > limit) return {position, true};
    asciiRun = codePoint < 0x80 ? asciiRun + 1 : 0;
    if (asciiRun > longRun && !(codePoint == '\n' && text[position - 1] == '\r')) break;
    position = next;
  }
  return {position, false};
}

// Calls `visit` with the end of each character in order, until it answers false.
template <std::predicate<std::size_t> Visit>
void visitCharacterEnds(std::string_view text, Visit visit) {
  constexpr std::size_t usualLimit = 4096, largestLimit = std::size_t{1} << 30;
  std::size_t limit = usualLimit;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t next = plainCharacterEnd(text, start);
    if (next != start) {
      start = next;
      if (!visit(start)) return;
      continue;
    }
    const Stretch stretch = stretchFrom(text, start, limit);
    const std::string_view part = text.substr(start, stretch.end - start);
    UErrorCode status = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUTF8(&source, part.data(), static_cast<int64_t>(part.size()), &status);
    icu::BreakIterator& breaks = characterBreaks();
    breaks.setText(&source, status);
    utext_close(&source);
    requireSuccess(status, "split characters");
    const std::size_t partStart = start;
    for (int32_t end = breaks.next(); end != icu::BreakIterator::DONE; end = breaks.next()) {
      const std::size_t place = partStart + static_cast<std::size_t>(end);
      // A last character that may have been cut is read again with what follows it.
      if (place == stretch.end && stretch.isCut && limit < largestLimit) break;
      start = place;
      if (!visit(start)) return;
    }
    limit = start == partStart ? limit * 2 : usualLimit;
  }
}

void requireCount(Int count) {
  if (count < 0) fatalFailure("Negative number of characters: " + std::to_string(count));
}

// The end of the first `count` characters.
std::size_t prefixEnd(std::string_view text, Int count) {
  requireCount(count);
  std::size_t result = 0;
  if (count == 0) return result;
  visitCharacterEnds(text, [&](std::size_t end) {
    result = end;
    return --count > 0;
  });
  return result;
}

// The start of the last `count` characters.
std::size_t suffixStart(std::string_view text, Int count) {
  requireCount(count);
  return prefixEnd(text, std::max<Int>(0, characterCount(text) - count));
}

using CaseMapping = void(const char* locale, uint32_t options, icu::StringPiece source,
                         icu::ByteSink& sink, icu::Edits* edits, UErrorCode& status);

// Maps the well-formed stretches and copies the malformed sequences between them.
std::string mapped(std::string_view text, CaseMapping& mapping) {
  // A stretch must fit ICU's 32-bit lengths, with room for texts that grow.
  constexpr std::size_t longestStretch = std::size_t{1} << 28;
  std::string result;
  result.reserve(text.size());
  icu::StringByteSink<std::string> sink(&result);
  std::size_t start = 0;
  const auto flush = [&](std::size_t end) {
    const auto length = static_cast<int32_t>(end - start);
    UErrorCode status = U_ZERO_ERROR;
    mapping("", 0, icu::StringPiece(text.data() + start, length), sink, nullptr, status);
    requireSuccess(status, "map case");
    start = end;
  };
  for (std::size_t position = 0; position < text.size();) {
    std::size_t end = position;
    if (readCodePoint(text, end) == malformed) {
      flush(position);
      result.append(text, position, end - position);
      start = end;
    } else if (end - start > longestStretch) {
      flush(position);
    }
    position = end;
  }
  flush(text.size());
  return result;
}

}  // namespace

Int characterCount(std::string_view text) {
  Int count = 0;
  visitCharacterEnds(text, [&](std::size_t) {
    ++count;
    return true;
  });
  return count;
}

std::vector<std::string_view> characters(std::string_view text) {
  std::vector<std::string_view> result;
  std::size_t start = 0;
  visitCharacterEnds(text, [&](std::size_t end) {
    result.push_back(text.substr(start, end - start));
    start = end;
    return true;
  });
  return result;
}

std::string_view characterPrefix(std::string_view text, Int count) {
  return text.substr(0, prefixEnd(text, count));
}

std::string_view characterSuffix(std::string_view text, Int count) {
  return text.substr(suffixStart(text, count));
}

std::string_view droppingFirstCharacters(std::string_view text, Int count) {
  return text.substr(prefixEnd(text, count));
}

std::string_view droppingLastCharacters(std::string_view text, Int count) {
  return text.substr(0, suffixStart(text, count));
}

std::string lowercased(std::string_view text) {
  if (!isAscii(text)) return mapped(text, icu::CaseMap::utf8ToLower);
  std::string result(text);
  for (char& byte : result) {
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  }
  return result;
}

std::string uppercased(std::string_view text) {
  if (!isAscii(text)) return mapped(text, icu::CaseMap::utf8ToUpper);
  std::string result(text);
  for (char& byte : result) {
    if (byte >= 'a' && byte <= 'z') byte = static_cast<char>(byte - 'a' + 'A');
  }
  return result;
}

bool isValidUtf8(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    if (isAscii(text[position])) {
      ++position;
    } else if (readCodePoint(text, position) == malformed) {
      return false;
    }
  }
  return true;
}

}  // namespace tolvanite
