#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>

#include <Tolvanite/Frame/detail/PercentEncoding.h>
#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/detail/IsoDate.h>
#include <Tolvanite/Json/detail/Nodes.h>

// What Json knows of times and file locations.

namespace tolvanite {

namespace {

using detail::Cell;
using detail::CellTag;

// The raw form of a wrapped value of a kind that has one; else the value as it is.
Cell rawForm(const ManagedObject& object) {
  if (const auto* time = object.wrapped<AbsoluteTime>()) return Cell::text(detail::isoText(*time));
  if (const auto* time = object.wrapped<std::chrono::system_clock::time_point>()) {
    return Cell::text(detail::isoText(AbsoluteTime(*time)));
  }
  if (const auto* location = object.wrapped<FileLocation>()) {
    return Cell::text(location->absoluteString());
  }
  if (const auto* path = object.wrapped<std::filesystem::path>()) {
    return Cell::text(FileLocation(*path).absoluteString());
  }
  return object.cell();
}

// NOLINTNEXTLINE(misc-no-recursion): as deep as the value.
Cell withAdditions(const Cell& cell) {
  const ManagedObject& object = ManagedObject::of(cell);
  if (const Json* json = object.wrapped<Json>()) {
    return withAdditions(json->managedJsonObject().cell());
  }
  if (cell.tag() == CellTag::other) return rawForm(object);
  const bool isList = cell.tag() == CellTag::list;
  if ((!isList && cell.tag() != CellTag::dictionary) || cell.elementCount() == 0) return cell;
  Cell result = cell;
  detail::makeChangeable(result, cell.elementCount());
  for (Cell& element : isList ? detail::elementsOf(result) : detail::valuesOf(result)) {
    element = withAdditions(element);
  }
  return result;
}

bool isHexadecimal(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'f') ||
         (byte >= 'A' && byte <= 'F');
}

bool isEscapeAt(std::string_view text, std::size_t place) {
  return text[place] == '%' && place + 2 < text.size() && isHexadecimal(text[place + 1]) &&
         isHexadecimal(text[place + 2]);
}

bool hasEscape(std::string_view text) {
  for (std::size_t i = text.find('%'); i != std::string_view::npos; i = text.find('%', i + 1)) {
    if (isEscapeAt(text, i)) return true;
  }
  return false;
}

// What a query holds as it is, beside letters and digits: RFC 3986, section 3.4.
constexpr std::string_view queryMarks = "-._~!$&'()*+,;=:@/?";

// Whether a text has only what RFC 3986 allows in a location.
bool isLocation(std::string_view text) {
  constexpr std::string_view furtherMarks = "#[]";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isPlain = detail::isAsciiLetterOrDigit(text[i]) ||
                         queryMarks.find(text[i]) != std::string_view::npos ||
                         furtherMarks.find(text[i]) != std::string_view::npos;
    if (!isPlain && !isEscapeAt(text, i)) return false;
  }
  return !text.empty();
}

// Whether a text begins with "NAME:".
bool hasScheme(std::string_view text) {
  const std::size_t end = text.find_first_of(":/?#");
  return end != std::string_view::npos && end > 0 && text[end] == ':';
}

}  // namespace

Json Json::joWithAdditions(const ManagedObject& object) {
  return ManagedObject(withAdditions(object.cell()));
}

Optional<FileLocation> Json::url() const {
  if (type_ != JsonType::string) return {};
  const std::string text = stringValue();
  const std::string encoded = hasEscape(text) ? text : detail::percentEncoded(text, queryMarks);
  if (!isLocation(encoded)) return {};
  if (hasScheme(encoded)) return FileLocation::fromAbsoluteString(encoded);
  // A path: decoded as the path of a location of the root directory.
  auto decoded = FileLocation::fromAbsoluteString("file:///" + encoded);
  if (decoded.isNone()) return {};
  if (encoded.starts_with('/')) return decoded;
  const std::string path = decoded->path().substr(1) + (decoded->isDirectory() ? "/" : "");
  std::error_code error;
  const std::filesystem::path current = std::filesystem::current_path(error);
  if (error) return {};
  return FileLocation(current / path);
}

Optional<AbsoluteTime> Json::date() const {
  if (type_ != JsonType::string) return {};
  return detail::timeOfIsoText(content_.textView());
}

}  // namespace tolvanite
