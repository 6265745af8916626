#include <ostream>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/detail/Nodes.h>

// The texts of a Json that are for people.

namespace tolvanite {

namespace {

using detail::Cell;
using detail::CellTag;

void appendQuoted(std::string& out, std::string_view text) {
  out += '"';
  for (const char byte : text) {
    // No other escapes, deliberately: line feeds and the like stay raw.
    if (byte == '\\' || byte == '"') out += '\\';
    out += byte;
  }
  out += '"';
}

// False at a value of an unknown kind.
bool appendPlain(std::string& out, const Cell& cell, bool isRoot) {
  if (cell.isText()) {
    if (isRoot) {
      out += cell.textView();
    } else {
      appendQuoted(out, cell.textView());
    }
  } else if (cell.isNumber()) {
    out += NumberValue(cell).stringValue();
  } else if (cell.tag() == CellTag::list) {
    out += '[';
    bool isFirst = true;
    for (const Cell& element : detail::elementsOf(cell)) {
      if (!std::exchange(isFirst, false)) out += ',';
      if (!appendPlain(out, element, false)) return false;
    }
    out += ']';
  } else if (cell.tag() == CellTag::dictionary) {
    out += '{';
    bool isFirst = true;
    const Cell* value = detail::valuesOf(cell).data();
    for (const Cell& key : detail::keysOf(cell)) {
      if (!std::exchange(isFirst, false)) out += ',';
      // Keys are not escaped, deliberately.
      out += '"';
      out += key.textView();
      out += "\": ";
      if (!appendPlain(out, *value++, false)) return false;
    }
    out += '}';
  } else if (cell.tag() == CellTag::null) {
    out += "null";
  } else {
    return false;
  }
  return true;
}

}  // namespace

Optional<std::string> Json::makeStringPlain() const {
  std::string result;
  if (type_ == JsonType::unknown || !appendPlain(result, content_, true)) return {};
  return result;
}

std::string Json::description() const {
  const Optional<std::string> plain = makeStringPlain();
  if (plain.isNone()) fatalFailure("Cannot makeString() of " + managedJsonObject().description());
  return "Json(type=" + std::string(nameOf(type_)) + ", content=" + *plain + ")";
}

std::string Json::debugDescription() const {
  return "Json(type=" + std::string(nameOf(type_)) + ")";
}

std::ostream& operator<<(std::ostream& out, const Json& json) { return out << json.description(); }

std::string Json::makeStringSystem(Optional<WritingOptions> options) const {
  const WritingOptions standard = WritingOptions::sortedKeys | WritingOptions::prettyPrinted;
  if (type_ == JsonType::unknown) {
    throw JSONSerialization::Errur::unwritableObject("a value of a kind that JSON does not have");
  }
  return JSONSerialization::text(managedJsonObject(), options.value_or(standard));
}

ByteBuffer Json::makeData(WritingOptions options) const {
  return ByteBuffer(makeStringSystem(options));
}

}  // namespace tolvanite
