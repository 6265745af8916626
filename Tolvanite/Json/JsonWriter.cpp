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
        lineStart_("\n") {
    extendLineStart();
  }

  void document(const Cell& root) {
    if (root.tag() == CellTag::list) {
      list(root);
    } else if (root.tag() == CellTag::dictionary || isOtherDictionary(root)) {
      dictionary(root);
    } else {
      throw Errur::invalidRootObject();
    }
    out_.append('\n');
  }

 private:
  static bool isOtherDictionary(const Cell& cell) {
    return ManagedObject::of(cell).isDictionaryWithOtherKeys();
  }

  // NOLINTBEGIN(misc-no-recursion): as deep as the value.
  void element(const Cell& cell) {
    if (cell.isShortText()) {
      text(cell.textView());
      return;
    }
    switch (cell.tag()) {
      case CellTag::signedInteger:
      case CellTag::unsignedInteger:
      case CellTag::real:
        out_.end(detail::writeNumber(out_.room(detail::numberTextRoom), cell));
        return;
      case CellTag::boolean:
        out_.append(cell.low() != 0 ? "true" : "false");
        return;
      case CellTag::decimal:
        out_.append(NumberValue(cell).description());
        return;
      case CellTag::longText:
        text(cell.textView());
        return;
      case CellTag::list:
        list(cell);
        return;
      case CellTag::dictionary:
        dictionary(cell);
        return;
      case CellTag::null:
        out_.append("null");
        return;
      default:
        break;
    }
    if (isOtherDictionary(cell)) dictionary(cell);
    throw Errur::invalidValue(ManagedObject(cell));
  }

  void list(const Cell& cell) {
    open('[');
    const char* separator = "";
    for (const Cell& each : detail::elementsOf(cell)) {
      char* out = startLine(separator);
      out_.end(out);
      element(each);
      separator = ",";
    }
    close(']');
  }

  void dictionary(const Cell& cell) {
    open('{');
    if (cell.tag() != CellTag::dictionary) {
      if (isIndented_) out_.append('\n');
      throw Errur::dictionaryWithNoStringKey(ManagedObject(cell));
    }
    const std::span<const Cell> keys = detail::keysOf(cell);
    const std::span<const Cell> values = detail::valuesOf(cell);
    const std::span<const std::uint32_t> order = orderOf(detail::shapeOf(cell));
    const char* separator = "";
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const std::size_t place = order.empty() ? i : order[i];
      const std::string_view key = keys[place].textView();
      char* out = startLine(separator, key.size());
      *out++ = '"';
      out = detail::copyInBlocks(out, key.data(), key.size());
      std::memcpy(out, behindKey_, 4);
      out_.end(out + (isIndented_ ? 4 : 2));
      element(values[place]);
      separator = ",";
    }
    close('}');
  }
  // NOLINTEND(misc-no-recursion)

  void text(std::string_view text) {
    char* out = out_.room(text.size() + copyBlock + 2);
    *out++ = '"';
    const std::size_t plain = detail::copyToEscape(out, text.data(), text.size());
    out_.end(out + plain);
    if (plain < text.size()) detail::appendEncodedForJson(out_, text, plain);
    out_.append('"');
  }

  void open(char bracket) {
    out_.append(bracket);
    ++writer_.depth_;
    if (lineStart_.size() < lineStartLength() + copyBlock) extendLineStart();
  }

  void close(char bracket) {
    --writer_.depth_;
    char* out = startLine("");
    *out++ = bracket;
    out_.end(out);
  }

  // Writes what stands between two elements, and gives room for `length` bytes and a few more.
  char* startLine(const char* separator, std::size_t length = 0) {
    const std::size_t indent = isIndented_ ? lineStartLength() : 0;
    char* out = out_.room(indent + length + 4 * copyBlock);
    *out = *separator;
    out += *separator == ',' ? 1 : 0;
    return detail::copyInBlocks(out, lineStart_.data(), indent);
  }

  // The line feed and the indent.
  std::size_t lineStartLength() const {
    return 1 + static_cast<std::size_t>(writer_.depth_) * indentLength_;
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
  std::span<const std::uint32_t> orderOf(const Shape* shape) {
    if (shape == nullptr || !writer_.sortKeys_) return {};
    if (writer_.customOrder_.isNone()) return shape->ascending();
    auto& [known, places] = customPlaces_[reinterpret_cast<std::uintptr_t>(shape) /
                                          alignof(std::max_align_t) % customPlaces_.size()];
    if (known != shape) {
      places = customOrderOf(*shape);
      known = shape;
    }
    return *places;
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
  std::array<std::pair<const Shape*, std::shared_ptr<const Places>>, 64> customPlaces_;
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

const std::string& JsonWriter::string(const ManagedObject& root) & {
  Pass(*this).document(root.cell());
  return dest_;
}

std::string JsonWriter::string(const ManagedObject& root) && {
  Pass(*this).document(root.cell());
  // A short text does not keep all the room that was made for it.
  if (dest_.size() < dest_.capacity() / 4) return dest_;
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
