#include <Tolvanite/Json/JsonWriter.h>

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <utility>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Json/detail/Escaping.h>
#include <Tolvanite/Json/detail/Nodes.h>
#include <Tolvanite/Json/detail/NumberText.h>
#include <Tolvanite/Json/detail/StringEncoding.h>
#include <Tolvanite/Json/detail/TextOut.h>

namespace tolvanite {

namespace {

using detail::Cell;
using detail::CellTag;
using detail::copyBlock;
using detail::Shape;

using Places = std::vector<std::uint32_t>;
using Ranks = Dictionary<std::string, Int>;

}  // namespace

// One call of the writer.
class JsonWriter::Pass {
 public:
  explicit Pass(JsonWriter& writer)
      : writer_(writer),
        out_(writer.dest_),
        isIndented_(writer.indentString_.isSome()),
        indentLength_(isIndented_ ? writer.indentString_->size() : 0),
        behindKey_(isIndented_ ? "\" : " : "\":  "),
        lineStart_("\n"),
        depth_(writer.depth_) {
    extendLineStart();
  }

  Pass(const Pass&) = delete;
  Pass& operator=(const Pass&) = delete;
  ~Pass() { writer_.depth_ = depth_; }

  void document(const Cell& root) {
    char* out = out_.room(elementRoom);
    if (root.tag() == CellTag::list) {
      out = list(out, root);
    } else if (root.tag() == CellTag::dictionary || isOtherDictionary(root)) {
      out = dictionary(out, root);
    } else {
      throw Errur::invalidRootObject();
    }
    out_.end(out);
    out_.append('\n');
  }

  // The same in pieces, for a list.
  void startList() {
    out_.append('[');
    enter();
  }
  void listElement(const Cell& cell, bool isFirst) {
    out_.end(element(startLine(out_.room(0), isFirst ? '\0' : ','), cell));
  }
  void endList() {
    out_.end(close(out_.room(0), ']'));
    out_.append('\n');
  }

 private:
  struct ReleaseShape {
    void operator()(Shape* shape) const noexcept { shape->release(); }
  };
  // The order of a shape's keys. It keeps the shape: of a list that comes element by element each
  // may be gone before the next one, whose keys could come to lie where its keys were.
  struct CustomOrder {
    std::unique_ptr<Shape, ReleaseShape> shape;
    std::shared_ptr<const Places> places;
  };

  // Everything that is written without a further look at the room: a number, a short text, a
  // bracket, with what stands around it.
  static constexpr std::size_t elementRoom = detail::numberTextRoom + 2 * copyBlock;

  static bool isOtherDictionary(const Cell& cell) {
    return ManagedObject::of(cell).isDictionaryWithOtherKeys();
  }

  static char* literal(char* out, const char (&text)[5]) {
    std::memcpy(out, text, 4);
    return out + 4;
  }

  // The following write to where there is room for an element, and give the end.

  // NOLINTBEGIN(misc-no-recursion): as deep as the value.
  char* element(char* out, const Cell& cell) {
    if (cell.isShortText()) return text(out, cell.textView());
    switch (cell.tag()) {
      case CellTag::signedInteger:
      case CellTag::unsignedInteger:
      case CellTag::real:
        return detail::writeNumber(out, cell);
      case CellTag::boolean:
        if (cell.low() != 0) return literal(out, "true");
        *out++ = 'f';
        return literal(out, "alse");
      case CellTag::null:
        return literal(out, "null");
      case CellTag::longText:
        return text(out_.roomAt(out, cell.textView().size() + elementRoom), cell.textView());
      case CellTag::list:
        return list(out, cell);
      case CellTag::dictionary:
        return dictionary(out, cell);
      case CellTag::decimal:
        out_.end(out);
        out_.append(NumberValue(cell).description());
        return out_.room(0);
      default:
        break;
    }
    if (isOtherDictionary(cell)) return dictionary(out, cell);
    out_.end(out);
    throw Errur::invalidValue(ManagedObject(cell));
  }

  char* list(char* out, const Cell& cell) {
    *out++ = '[';
    enter();
    char separator = '\0';
    for (const Cell& each : detail::elementsOf(cell)) {
      out = element(startLine(out, separator), each);
      separator = ',';
    }
    return close(out, ']');
  }

  char* dictionary(char* out, const Cell& cell) {
    *out++ = '{';
    enter();
    if (cell.tag() != CellTag::dictionary) {
      out_.end(out);
      if (isIndented_) out_.append('\n');
      throw Errur::dictionaryWithNoStringKey(ManagedObject(cell));
    }
    const std::span<const Cell> keys = detail::keysOf(cell);
    const std::span<const Cell> values = detail::valuesOf(cell);
    const std::span<const std::uint32_t> order = orderOf(detail::shapeOf(cell));
    char separator = '\0';
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const std::size_t place = order.empty() ? i : order[i];
      const std::string_view key = keys[place].textView();
      out = startLine(out, separator, key.size() + copyBlock);
      *out++ = '"';
      out = detail::copyInBlocks(out, key.data(), key.size());
      std::memcpy(out, behindKey_, 4);
      out = element(out + (isIndented_ ? 4 : 2), values[place]);
      separator = ',';
    }
    return close(out, '}');
  }
  // NOLINTEND(misc-no-recursion)

  // Here is room for the whole text, too.
  char* text(char* out, std::string_view text) {
    *out++ = '"';
    const std::size_t plain = detail::copyToEscape(out, text.data(), text.size());
    out += plain;
    if (plain < text.size()) {
      out_.end(out);
      detail::appendEncodedForJson(out_, text, plain);
      out = out_.room(1);
    }
    *out++ = '"';
    return out;
  }

  void enter() {
    ++depth_;
    if (isIndented_ && lineStart_.size() < lineStartLength() + copyBlock) extendLineStart();
  }

  char* close(char* out, char bracket) {
    --depth_;
    out = startLine(out, '\0');
    *out++ = bracket;
    return out;
  }

  // Makes room for an element and `length` bytes more, and writes what stands before it.
  char* startLine(char* out, char separator, std::size_t length = 0) {
    const std::size_t indent = isIndented_ ? lineStartLength() : 0;
    out = out_.roomAt(out, indent + length + elementRoom + copyBlock + 1);
    *out = separator;
    out += separator != '\0' ? 1 : 0;
    return detail::copyInBlocks(out, lineStart_.data(), indent);
  }

  // The line feed and the indent.
  std::size_t lineStartLength() const {
    return 1 + static_cast<std::size_t>(depth_) * indentLength_;
  }

  void extendLineStart() {
    constexpr std::size_t levels = 16;
    const std::size_t needed = lineStartLength() + copyBlock;
    while (indentLength_ > 0 && lineStart_.size() < needed + levels * indentLength_) {
      lineStart_ += *writer_.indentString_;
    }
    if (lineStart_.size() < needed) lineStart_.resize(needed, ' ');
  }

  // The places of a dictionary's keys as they are written; empty if they stay as they are.
  std::span<const std::uint32_t> orderOf(Shape* shape) {
    if (shape == nullptr || !writer_.sortKeys_) return {};
    if (writer_.customOrder_.isNone()) return shape->ascending();
    CustomOrder& known = customOrders_[reinterpret_cast<std::uintptr_t>(shape) /
                                       alignof(std::max_align_t) % customOrders_.size()];
    if (known.shape.get() != shape) {
      known.places = customOrderOf(*shape);
      shape->retain();
      known.shape.reset(shape);
    }
    return *known.places;
  }

  std::shared_ptr<const Places> customOrderOf(const Shape& shape) const {
    const Ranks& ranks = *writer_.customOrder_;
    const auto rankOf = [&](std::uint32_t place) {
      const auto found = ranks.find(std::string(shape.keys()[place].textView()));
      return found == ranks.end() ? std::numeric_limits<Int>::max() : found->second;
    };
    const std::span<const std::uint32_t> ascending = shape.ascending();
    auto result = std::make_shared<Places>(ascending.begin(), ascending.end());
    // Those without a rank keep their ascending order.
    std::ranges::stable_sort(*result, {}, rankOf);
    return result;
  }

  JsonWriter& writer_;
  detail::TextOut out_;
  bool isIndented_;
  std::size_t indentLength_;
  // Copied as four bytes, of which a compact text needs two.
  const char* behindKey_;
  // A line feed and indents for some levels more than are needed, and a block to be read beyond.
  std::string lineStart_;
  Int depth_;
  std::array<CustomOrder, 64> customOrders_;
};

JsonWriter::JsonWriter(Optional<std::string> indentString, bool sortKeys,
                       Optional<SortKeyOrder> sortKeyOrder, std::source_location location)
    : indentString_(std::move(indentString)),
      sortKeys_(sortKeys),
      sortKeyOrder_(std::move(sortKeyOrder)) {
  constexpr std::size_t firstRoom = 1'000'000;
  dest_.reserve(firstRoom);
  if (sortKeyOrder_.isNone()) return;
  customOrder_.emplace();
  for (const std::string& key : *sortKeyOrder_) {
    if (!customOrder_->emplace(key, static_cast<Int>(customOrder_->size())).second) {
      fatalFailure("The key \"" + key + "\" stands twice in sortKeyOrder", location);
    }
  }
}

JsonWriter::~JsonWriter() = default;

std::shared_ptr<JsonWriter> JsonWriter::make(Optional<std::string> indentString, bool sortKeys,
                                             Optional<SortKeyOrder> sortKeyOrder,
                                             std::source_location location) {
  return std::make_shared<JsonWriter>(std::move(indentString), sortKeys, std::move(sortKeyOrder),
                                      location);
}

JsonWriter::List::List(JsonWriter& writer) : pass_(std::make_unique<Pass>(writer)) {
  pass_->startList();
}

JsonWriter::List::~List() = default;

void JsonWriter::List::append(const ManagedObject& element) {
  pass_->listElement(element.cell(), std::exchange(isEmpty_, false));
}

void JsonWriter::List::end() {
  pass_->endList();
  pass_.reset();
}

const std::string& JsonWriter::string(const ManagedObject& root) & {
  Pass(*this).document(root.cell());
  return dest_;
}

std::string JsonWriter::string(const ManagedObject& root) && {
  Pass(*this).document(root.cell());
  return std::move(*this).dest();
}

std::string JsonWriter::dest() && noexcept {
  // A short text does not keep all the room that was made for it.
  constexpr std::size_t large = 256 << 10;
  if (dest_.size() < large) return dest_;
  return std::move(dest_);
}

std::string JsonWriter::stringFrom(const ManagedObject& root) { return JsonWriter().string(root); }

std::string JsonWriter::linePrefix() const {
  std::string result;
  for (Int i = 0; i < depth_ && indentString_.isSome(); ++i) result += *indentString_;
  return result;
}

JsonWriter::Errur JsonWriter::Errur::dictionaryWithNoStringKey(ManagedObject dictionary) {
  std::string text = "A dictionary with a key that is no text: " + dictionary.description();
  return {Case::dictionaryWithNoStringKey, std::move(text), std::move(dictionary)};
}

JsonWriter::Errur JsonWriter::Errur::invalidValue(ManagedObject object) {
  std::string text = "A value of a kind that JSON does not have: " + object.description();
  return {Case::invalidValue, std::move(text), std::move(object)};
}

JsonWriter::Errur JsonWriter::Errur::invalidRootObject() {
  return {Case::invalidRootObject, "The root is neither an array nor a dictionary", {}};
}

JsonWriter::Errur::~Errur() = default;

std::string Json::makeStringJsonWriter(
    std::string_view indentString, const Optional<std::vector<std::string>>& sortKeyOrder) const {
  return JsonWriter(std::string(indentString), true, sortKeyOrder).string(managedJsonObject());
}

}  // namespace tolvanite
