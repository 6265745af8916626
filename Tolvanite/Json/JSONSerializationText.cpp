#include <cmath>
#include <utility>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Json/JSONSerialization.h>
#include <Tolvanite/Json/detail/Escaping.h>
#include <Tolvanite/Json/detail/Nodes.h>
#include <Tolvanite/Json/detail/TextOut.h>

// The plain writer.

namespace tolvanite {

namespace {

using detail::Cell;
using detail::CellTag;
using Options = JSONSerialization::WritingOptions;

[[noreturn]] void fail(std::string_view what) {
  throw JSONSerialization::Errur::unwritableObject(what);
}

class Writer {
 public:
  Writer(std::string& text, Options options)
      : out_(text),
        isPretty_(contains(options, Options::prettyPrinted)),
        isSorted_(contains(options, Options::sortedKeys)) {}

  // NOLINTBEGIN(misc-no-recursion): as deep as the value.
  void element(const Cell& cell) {
    if (cell.isText()) {
      string(cell.textView());
    } else if (cell.isNumber()) {
      if (cell.tag() == CellTag::real && !std::isfinite(cell.realNumber())) {
        fail("the number " + NumberValue(cell).stringValue());
      }
      out_.append(NumberValue(cell).stringValue());
    } else if (cell.tag() == CellTag::list) {
      list(cell);
    } else if (cell.tag() == CellTag::dictionary) {
      dictionary(cell);
    } else if (cell.tag() == CellTag::null) {
      out_.append("null");
    } else {
      fail(ManagedObject::of(cell).description());
    }
  }

 private:
  void list(const Cell& cell) {
    bool isFirst = true;
    open('[');
    for (const Cell& each : detail::elementsOf(cell)) {
      startElement(std::exchange(isFirst, false));
      element(each);
    }
    close(']', isFirst);
  }

  void dictionary(const Cell& cell) {
    const std::span<const Cell> keys = detail::keysOf(cell);
    const std::span<const Cell> values = detail::valuesOf(cell);
    const bool isOrdered = isSorted_ && !keys.empty();
    std::span<const std::uint32_t> order;
    if (isOrdered) order = detail::shapeOf(cell)->ascending();
    open('{');
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const std::size_t place = isOrdered ? order[i] : i;
      startElement(i == 0);
      string(keys[place].textView());
      out_.append(isPretty_ ? " : " : ":");
      element(values[place]);
    }
    close('}', keys.empty());
  }
  // NOLINTEND(misc-no-recursion)

  void string(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    if (!isValidUtf8(text)) fail("a text that is not UTF-8");
    out_.append('"');
    for (std::size_t start = 0;; ++start) {
      const std::size_t next = detail::findEscape(text, start);
      out_.append(text.substr(start, next - start));
      start = next;
      if (start == text.size()) break;
      const char byte = text[start];
      constexpr std::string_view named = "\"\\\b\f\n\r\t";
      constexpr std::string_view names = "\"\\bfnrt";
      const std::size_t at = named.find(byte);
      out_.append('\\');
      if (at != std::string_view::npos) {
        out_.append(names[at]);
      } else {
        out_.append("u00");
        out_.append(digits[static_cast<unsigned char>(byte) / 16]);
        out_.append(digits[static_cast<unsigned char>(byte) % 16]);
      }
    }
    out_.append('"');
  }

  void open(char bracket) {
    out_.append(bracket);
    ++depth_;
  }
  void startElement(bool isFirst) {
    if (!isFirst) out_.append(',');
    startLine();
  }
  void close(char bracket, bool isEmpty) {
    --depth_;
    if (!isEmpty) startLine();
    out_.append(bracket);
  }
  void startLine() {
    if (isPretty_) out_.append("\n" + std::string(2 * depth_, ' '));
  }

  detail::TextOut out_;
  bool isPretty_;
  bool isSorted_;
  std::size_t depth_ = 0;
};

}  // namespace

std::string JSONSerialization::text(const ManagedObject& object, WritingOptions options) {
  const CellTag tag = object.cell().tag();
  const bool isContainer = tag == CellTag::list || tag == CellTag::dictionary;
  if (!isContainer && !contains(options, Options::fragmentsAllowed)) {
    fail("a root that is neither an array nor a dictionary");
  }
  std::string result;
  Writer(result, options).element(object.cell());
  result.shrink_to_fit();
  return result;
}

}  // namespace tolvanite
