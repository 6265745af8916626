#include <Tolvanite/Json/detail/TextReader.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

#include <Tolvanite/Json/JSONSerialization.h>
#include <Tolvanite/Json/detail/Nodes.h>

namespace tolvanite::detail {

namespace {

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

// The length of the UTF-8 sequence that a text begins with; 0 if it is malformed.
std::size_t sequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  const auto follows = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xbf) {
    return byte(i) >= low && byte(i) <= high;
  };
  const unsigned lead = byte(0);
  if (lead < 0x80) return 1;
  if (lead >= 0xc2 && lead <= 0xdf) return follows(1) ? 2 : 0;
  if (lead >= 0xe0 && lead <= 0xef) {
    // Neither overlong nor a surrogate.
    const bool isGood = follows(1, lead == 0xe0 ? 0xa0 : 0x80, lead == 0xed ? 0x9f : 0xbf);
    return isGood && follows(2) ? 3 : 0;
  }
  if (lead >= 0xf0 && lead <= 0xf4) {
    const bool isGood = follows(1, lead == 0xf0 ? 0x90 : 0x80, lead == 0xf4 ? 0x8f : 0xbf);
    return isGood && follows(2) && follows(3) ? 4 : 0;
  }
  return 0;
}

void appendUtf8(std::string& out, std::uint32_t point) {
  const auto append = [&](std::uint32_t byte) { out += static_cast<char>(byte); };
  if (point < 0x80) {
    append(point);
    return;
  }
  if (point < 0x800) {
    append(0xc0 | point >> 6);
  } else {
    if (point < 0x10000) {
      append(0xe0 | point >> 12);
    } else {
      append(0xf0 | point >> 18);
      append(0x80 | (point >> 12 & 0x3f));
    }
    append(0x80 | (point >> 6 & 0x3f));
  }
  append(0x80 | (point & 0x3f));
}

class Reader {
 public:
  Reader(std::string_view text, std::size_t start) : text_(text), at_(start) {}

  Cell document() {
    skipSpace();
    Cell result = value();
    skipSpace();
    if (at_ < text_.size()) fail("the text goes on behind its value");
    return result;
  }

 private:
  // NOLINTBEGIN(misc-no-recursion): no deeper than the greatest depth.
  Cell value() {
    switch (peek()) {
      case '{':
        return dictionary();
      case '[':
        return list();
      case '"':
        return Cell::text(string());
      case 't':
        return literal("true", Cell::boolean(true));
      case 'f':
        return literal("false", Cell::boolean(false));
      case 'n':
        return literal("null", Cell());
      default:
        break;
    }
    if (isDigit(peek()) || peek() == '-') return number();
    fail(at_ == text_.size() ? "the text ends where a value is expected" : "no value begins so");
  }

  Cell list() {
    Cell result(CellTag::list, std::uint64_t{0});
    enter();
    skipSpace();
    if (take(']')) return leave(std::move(result));
    for (;;) {
      skipSpace();
      appendTo(result, value());
      skipSpace();
      if (take(']')) return leave(std::move(result));
      if (!take(',')) fail("a comma or ] is expected in an array");
    }
  }

  Cell dictionary() {
    Cell result(CellTag::dictionary, std::uint64_t{0});
    enter();
    skipSpace();
    if (take('}')) return leave(std::move(result));
    for (;;) {
      skipSpace();
      if (peek() != '"') fail("a key between double quotes is expected in an object");
      const Cell key = Cell::text(string());
      skipSpace();
      if (!take(':')) fail("a colon is expected behind a key");
      skipSpace();
      setIn(result, key, value());
      skipSpace();
      if (take('}')) return leave(std::move(result));
      if (!take(',')) fail("a comma or } is expected in an object");
    }
  }
  // NOLINTEND(misc-no-recursion)

  void enter() {
    if (++depth_ > JSONSerialization::greatestDepth) {
      fail("containers are nested deeper than " + std::to_string(JSONSerialization::greatestDepth));
    }
    ++at_;
  }
  Cell leave(Cell&& container) {
    --depth_;
    return std::move(container);
  }

  std::string string() {
    const std::size_t start = at_++;
    std::string result;
    for (;;) {
      if (at_ == text_.size()) fail("a string does not end", start);
      const char byte = text_[at_];
      if (byte == '"') break;
      if (byte == '\\') {
        escape(result);
      } else if (static_cast<unsigned char>(byte) < 0x20) {
        fail("a control character stands in a string");
      } else {
        const std::size_t length = sequenceLength(text_.substr(at_));
        if (length == 0) fail("no UTF-8");
        result += text_.substr(at_, length);
        at_ += length;
      }
    }
    ++at_;
    return result;
  }

  void escape(std::string& result) {
    const std::size_t start = at_;
    const char kind = at_ + 1 < text_.size() ? text_[at_ + 1] : '\0';
    at_ += 2;
    switch (kind) {
      case '"':
      case '\\':
      case '/':
        result += kind;
        return;
      case 'b':
        result += '\b';
        return;
      case 'f':
        result += '\f';
        return;
      case 'n':
        result += '\n';
        return;
      case 'r':
        result += '\r';
        return;
      case 't':
        result += '\t';
        return;
      case 'u':
        break;
      default:
        fail("no escape begins so", start);
    }
    std::uint32_t point = fourDigits(start);
    if (point >= 0xdc00 && point <= 0xdfff) fail("a second surrogate without a first", start);
    if (point >= 0xd800 && point <= 0xdbff) {
      if (text_.substr(at_, 2) != "\\u") fail("a first surrogate without a second", start);
      at_ += 2;
      const std::uint32_t second = fourDigits(at_ - 2);
      if (second < 0xdc00 || second > 0xdfff) fail("a first surrogate without a second", start);
      point = 0x10000 + (point - 0xd800) * 0x400 + (second - 0xdc00);
    }
    appendUtf8(result, point);
  }

  std::uint32_t fourDigits(std::size_t escapeStart) {
    const std::string_view digits = text_.substr(std::min(at_, text_.size()), 4);
    std::uint32_t point = 0;
    const char* const first = digits.data();
    const char* const end = first + digits.size();
    if (digits.size() < 4 || std::from_chars(first, end, point, 16).ptr != end) {
      fail("\\u needs four hexadecimal digits", escapeStart);
    }
    at_ += 4;
    return point;
  }

  Cell number() {
    const std::size_t start = at_;
    bool isInteger = true;
    take('-');
    if (!take('0')) digits(start);
    if (take('.')) {
      isInteger = false;
      digits(start);
    }
    if (take('e') || take('E')) {
      isInteger = false;
      if (!take('+')) take('-');
      digits(start);
    }
    const std::string_view number = text_.substr(start, at_ - start);
    return isInteger ? integer(number, start) : real(number, start);
  }

  void digits(std::size_t numberStart) {
    if (!isDigit(peek())) fail("a number lacks a digit", numberStart);
    while (isDigit(peek())) ++at_;
  }

  Cell integer(std::string_view number, std::size_t start) const {
    const char* const first = number.data();
    const char* const end = first + number.size();
    std::int64_t asSigned = 0;
    if (std::from_chars(first, end, asSigned).ec == std::errc()) {
      return Cell::signedInteger(asSigned);
    }
    std::uint64_t asUnsigned = 0;
    if (number[0] != '-' && std::from_chars(first, end, asUnsigned).ec == std::errc()) {
      return Cell::unsignedInteger(asUnsigned);
    }
    real(number, start);
    return makeDecimal(*Decimal::parse(number));
  }

  Cell real(std::string_view number, std::size_t start) const {
    double result = 0;
    const char* const first = number.data();
    if (std::from_chars(first, first + number.size(), result).ec ==
        std::errc::result_out_of_range) {
      // Too large, or too near to 0.
      const Optional<Decimal> decimal = Decimal::parse(number);
      result = decimal.isSome() ? decimal->toDouble() : std::numeric_limits<double>::infinity();
    }
    if (!std::isfinite(result)) fail("a number that no double can hold", start);
    return Cell::real(result);
  }

  Cell literal(std::string_view word, Cell cell) {
    if (!text_.substr(at_).starts_with(word)) fail("no value begins so");
    at_ += word.size();
    return cell;
  }

  void skipSpace() {
    while (peek() == ' ' || peek() == '\n' || peek() == '\r' || peek() == '\t') ++at_;
  }
  // 0 at the end, which no place of the grammar takes.
  char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  bool take(char byte) {
    if (at_ == text_.size() || text_[at_] != byte) return false;
    ++at_;
    return true;
  }

  [[noreturn]] void fail(std::string_view what) const { fail(what, at_); }
  [[noreturn]] void fail(std::string_view what, std::size_t at) const {
    throw JSONSerialization::Errur::malformedText(what, static_cast<Int>(at));
  }

  std::string_view text_;
  std::size_t at_;
  int depth_ = 0;
};

}  // namespace

Cell readText(std::string_view text, std::size_t start) { return Reader(text, start).document(); }

}  // namespace tolvanite::detail
