#include <Tolvanite/Frame/Unicode.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/utf8.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/detail/ByteBlock.h>
#include <Tolvanite/Frame/detail/CodePoints.h>
#include <Tolvanite/Frame/detail/GraphemeBreaks.h>

namespace tolvanite {

namespace detail {

std::int32_t readCodePoint(std::string_view text, std::size_t& position) {
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

}  // namespace detail

namespace {

using detail::isAscii;
using detail::malformed;
using detail::readCodePoint;

// Walks over a text and tells `sink` where its characters start, in order, until it answers false:
// `sink.start(offset)` for one, `sink.startOfEach(offset, count)` for a run of characters of one
// byte.
template <typename Sink>
class CharacterWalk {
 public:
  CharacterWalk(std::string_view text, Sink& sink) : text_(text), sink_(sink) {}

  void run() {
    std::size_t position = 0;
    while (position < text_.size()) {
      if (isAscii(text_[position]) && text_[position] != '\r') {
        if (!passAsciiRun(position)) return;
      } else {
        const std::size_t start = position;
        const std::int32_t codePoint = detail::readCodePointInline(text_, position);
        if (step(classOf(codePoint)) && !sink_.start(start)) return;
      }
    }
  }

 private:
  static detail::GraphemeClass classOf(std::int32_t codePoint) {
    // A malformed sequence joins nothing, as a control character.
    if (codePoint == malformed) return detail::GraphemeClass::control;
    return detail::graphemeClass(static_cast<std::uint32_t>(codePoint));
  }

  // Whether a character ends before the next code point.
  bool step(detail::GraphemeClass next) {
    const std::uint8_t bits =
        detail::graphemeSteps[state_ * detail::graphemeStepRow + static_cast<std::size_t>(next)];
    state_ = bits & (detail::graphemeBreakBit - 1);
    return (bits & detail::graphemeBreakBit) != 0;
  }

  // Within plain ASCII every byte but a line feed behind a carriage return is a character, so that
  // only the first and the last byte of such a run meet the rules.
  bool passAsciiRun(std::size_t& position) {
    const std::size_t start = position;
    position = detail::findByte(
        text_, start + 1, [](detail::ByteBlock block) { return block.nonAsciiOr('\r'); },
        [](char byte) { return !isAscii(byte) || byte == '\r'; });
    if (step(classOf(text_[start])) && !sink_.start(start)) return false;
    if (position == start + 1) return true;
    step(classOf(text_[position - 1]));
    return sink_.startOfEach(start + 1, position - start - 1);
  }

  std::string_view text_;
  Sink& sink_;
  std::size_t state_ = static_cast<std::size_t>(detail::GraphemeState::any);
};

template <typename Sink>
Sink walked(std::string_view text, Sink sink) {
  CharacterWalk<Sink>(text, sink).run();
  return sink;
}

// Counts the characters.
struct Counter {
  std::size_t count = 0;

  bool start(std::size_t) {
    ++count;
    return true;
  }
  bool startOfEach(std::size_t, std::size_t run) {
    count += run;
    return true;
  }
};

// Stops where the character behind the first `left` ones starts.
struct PlaceFinder {
  std::size_t left;
  std::size_t offset;

  bool start(std::size_t at) { return startOfEach(at, 1); }
  bool startOfEach(std::size_t at, std::size_t run) {
    if (run <= left) {
      left -= run;
      return true;
    }
    offset = at + left;
    left = 0;
    return false;
  }
};

// Collects the characters but for the last.
struct Collector {
  std::string_view text;
  std::vector<std::string_view> result = {};
  std::size_t previous = 0;

  bool start(std::size_t at) {
    if (at != 0) result.push_back(text.substr(previous, at - previous));
    previous = at;
    return true;
  }
  bool startOfEach(std::size_t at, std::size_t run) {
    for (std::size_t i = at; i < at + run; ++i) start(i);
    return true;
  }
};

void requireSuccess(UErrorCode status, const char* aim) {
  if (U_FAILURE(status)) fatalFailure(std::string("Can't ") + aim + ": " + u_errorName(status));
}

void requireCount(Int count) {
  if (count < 0) fatalFailure("Negative number of characters: " + std::to_string(count));
}

// The end of the first `count` characters.
std::size_t prefixEnd(std::string_view text, Int count) {
  requireCount(count);
  return detail::placeBehindCharacters(text, count).offset;
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

detail::CharacterPlace detail::placeBehindCharacters(std::string_view text, Int count) {
  const PlaceFinder found = walked(text, PlaceFinder{static_cast<std::size_t>(count), text.size()});
  return {found.offset, static_cast<Int>(found.left)};
}

Int characterCount(std::string_view text) {
  return static_cast<Int>(walked(text, Counter()).count);
}

std::vector<std::string_view> characters(std::string_view text) {
  Collector collected = walked(text, Collector{text});
  if (!text.empty()) collected.result.push_back(text.substr(collected.previous));
  return std::move(collected.result);
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
  for (std::size_t position = detail::findNonAscii(text); position < text.size();
       position = detail::findNonAscii(text, position)) {
    if (readCodePoint(text, position) == malformed) return false;
  }
  return true;
}

}  // namespace tolvanite
