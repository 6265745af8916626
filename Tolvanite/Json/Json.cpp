#include <Tolvanite/Json/Json.h>

#include <ostream>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Json/detail/Nodes.h>
#include <Tolvanite/Json/detail/Numbers.h>

namespace tolvanite {

namespace {

using detail::Cell;
using detail::CellTag;

JsonType typeOf(const Cell& cell) {
  if (cell.isText()) return JsonType::string;
  switch (cell.tag()) {
    case CellTag::null:
      return JsonType::null;
    case CellTag::boolean:
      return JsonType::boolean;
    case CellTag::list:
      return JsonType::array;
    case CellTag::dictionary:
      return JsonType::dictionary;
    case CellTag::other:
      return JsonType::unknown;
    default:
      return JsonType::number;
  }
}

Json wrapped(const Cell& cell) { return ManagedObject::of(cell); }

bool isSameIgnoringCase(std::string_view text, std::string_view lowerCase) {
  return text == lowerCase || lowercased(text) == lowerCase;
}

Cell unwrapped(const Cell& cell) {
  if (const Json* json = ManagedObject::of(cell).wrapped<Json>()) {
    return unwrapped(json->managedJsonObject().cell());
  }
  if (cell.elementCount() == 0) return cell;
  Cell result = cell;
  if (cell.tag() == CellTag::list || cell.tag() == CellTag::dictionary) {
    detail::makeChangeable(result, cell.elementCount());
    for (Cell& element :
         cell.tag() == CellTag::list ? detail::elementsOf(result) : detail::valuesOf(result)) {
      element = unwrapped(element);
    }
  }
  return result;
}

}  // namespace

Json Json::unwrap(const ManagedObject& object) { return wrapped(unwrapped(object.cell())); }

Json Json::parseString(std::string_view text) {
  try {
    return JSONSerialization::JSONObjectWithData(text, ReadingOptions::allowFragments);
  } catch (const JSONSerialization::Errur&) {
    if (!isValidUtf8(text)) throw JsonFailure(JsonError::notUtf8Encoded);
    throw;
  }
}

Json Json::fromData(const ByteBuffer& data, ReadingOptions options) {
  return JSONSerialization::JSONObjectWithData(data, options);
}

Json Json::null(JsonError error) noexcept {
  Json result;
  result.error_ = error;
  return result;
}

void Json::setManagedJsonObject(const ManagedObject& object) noexcept {
  type_ = typeOf(object.cell());
  if (type_ == JsonType::unknown) {
    content_ = Cell();
    error_ = JsonError::unsupportedType;
  } else {
    content_ = object.cell();
    error_.reset();
  }
}

void Json::object(std::source_location location) { fatalFailure("who uses this", location); }

bool Json::exists() const noexcept {
  return error_ != JsonError::indexOutOfBounds && error_ != JsonError::invalidType &&
         error_ != JsonError::notExist;
}

Optional<std::vector<Json>> Json::array() const {
  if (type_ != JsonType::array) return {};
  std::vector<Json> result;
  result.reserve(content_.elementCount());
  for (const Cell& element : detail::elementsOf(content_)) result.push_back(wrapped(element));
  return result;
}

Optional<ManagedArray> Json::arrayObject() const { return ManagedObject::of(content_).list(); }

Optional<Dictionary<std::string, Json>> Json::dictionary() const {
  if (type_ != JsonType::dictionary) return {};
  return dictionaryValue();
}

Dictionary<std::string, Json> Json::dictionaryValue() const {
  Dictionary<std::string, Json> result;
  if (type_ != JsonType::dictionary) return result;
  for (const auto& [key, value] : ManagedDictionary(content_)) result.emplace(key, value);
  return result;
}

Optional<ManagedDictionary> Json::dictionaryObject() const {
  return ManagedObject::of(content_).dictionary();
}

Optional<bool> Json::asBool() const {
  if (type_ != JsonType::boolean) return {};
  return content_.low() != 0;
}

bool Json::boolValue() const {
  if (type_ == JsonType::number || type_ == JsonType::boolean) {
    return NumberValue(content_).boolValue();
  }
  if (type_ != JsonType::string) return false;
  const std::string_view text = content_.textView();
  return isSameIgnoringCase(text, "true") || isSameIgnoringCase(text, "y") ||
         isSameIgnoringCase(text, "t");
}

Optional<std::string> Json::string() const { return ManagedObject::of(content_).text(); }

std::string Json::stringValue() const {
  if (type_ == JsonType::string) return std::string(content_.textView());
  if (content_.isNumber()) return NumberValue(content_).stringValue();
  return {};
}

Optional<NumberValue> Json::number() const {
  if (type_ == JsonType::boolean) return NumberValue(content_.low() != 0 ? 1 : 0);
  return ManagedObject::of(content_).number();
}

NumberValue Json::numberValue() const {
  if (type_ == JsonType::string) {
    return NumberValue::decimal(content_.textView()).whenNil([] {
      return *NumberValue::decimal("0");
    });
  }
  return number().whenNil([] { return NumberValue(0.0); });
}

Optional<NullMarker> Json::nullMarker() const {
  if (type_ != JsonType::null) return {};
  return NullMarker();
}

Json::Index Json::startIndex() const noexcept {
  if (type_ == JsonType::array) return Index::array(0);
  return type_ == JsonType::dictionary ? Index::dictionary(0) : Index::null();
}

Json::Index Json::endIndex() const noexcept {
  const auto count = static_cast<Int>(content_.elementCount());
  if (type_ == JsonType::array) return Index::array(count);
  return type_ == JsonType::dictionary ? Index::dictionary(count) : Index::null();
}

Json::Index Json::indexAfter(const Index& index) const noexcept {
  switch (index.indexCase()) {
    case Index::Case::array:
      return Index::array(index.position() + 1);
    case Index::Case::dictionary:
      return Index::dictionary(index.position() + 1);
    default:
      return index;
  }
}

Json::Element Json::operator[](const Index& index) const {
  if (index.indexCase() == Index::Case::null) return {"", Json()};
  const Int count = static_cast<Int>(content_.elementCount());
  if (index.position() < 0 || index.position() >= count) {
    fatalIndexOutOfRange(index.position(), count);
  }
  const auto place = static_cast<std::size_t>(index.position());
  if (index.indexCase() == Index::Case::array && type_ == JsonType::array) {
    return {std::to_string(place), wrapped(detail::elementsOf(content_)[place])};
  }
  if (index.indexCase() != Index::Case::dictionary || type_ != JsonType::dictionary) {
    fatalFailure("A position of another type of Json than " + std::string(nameOf(type_)));
  }
  return {std::string(detail::keysOf(content_)[place].textView()),
          wrapped(detail::valuesOf(content_)[place])};
}

Json::Iterator Json::begin() const noexcept { return {*this, startIndex()}; }
Json::Iterator Json::end() const noexcept { return {Json(), endIndex()}; }

void Json::mergeContent(Cell& self, const Cell& other) {
  if (self.tag() == CellTag::list && other.tag() == CellTag::list) {
    const Cell kept = other;  // it may be the same list
    for (const Cell& element : detail::elementsOf(kept)) detail::appendTo(self, element);
  } else if (self.tag() == CellTag::dictionary && other.tag() == CellTag::dictionary) {
    const Cell kept = other;
    const Cell* value = detail::valuesOf(kept).data();
    for (const Cell& key : detail::keysOf(kept)) {
      if (detail::findIn(self, key) == nullptr) {
        detail::setIn(self, key, value->tag() == CellTag::other ? Cell() : *value);
      } else {
        detail::makeChangeable(self, self.elementCount());
        mergeContent(const_cast<Cell&>(*detail::findIn(self, key)), *value);
      }
      ++value;
    }
  } else {
    self = other.tag() == CellTag::other ? Cell() : other;
  }
}

void Json::merge(const Json& other, bool typecheck) {
  if (type_ != other.type_) {
    if (typecheck) throw JsonFailure(JsonError::invalidType);
    *this = Json(other);
  } else if (type_ == JsonType::array || type_ == JsonType::dictionary) {
    mergeContent(content_, other.content_);
    error_.reset();
  } else {
    *this = Json(other);
  }
}

Json Json::merged(const Json& other) const {
  Json result = *this;
  result.merge(other);
  return result;
}

Set<std::string> Json::collectKeyPaths() const {
  switch (type_) {
    case JsonType::unknown:
      fatalFailure(".unknown");
    case JsonType::array:
      return {".array#" + std::to_string(content_.elementCount())};
    case JsonType::dictionary:
      break;
    default:
      return {"." + std::string(nameOf(type_))};
  }
  Set<std::string> result;
  for (const auto& [key, value] : *this) {
    for (const std::string& path : value.collectKeyPaths()) {
      result.insert(std::string(".").append(key).append(path));
    }
  }
  return result;
}

Set<std::string> collectKeyPaths(std::span<const Json> documents) {
  Set<std::string> result;
  for (const Json& document : documents) result.merge(document.collectKeyPaths());
  return result;
}

std::partial_ordering operator<=>(const Json& a, const Json& b) noexcept {
  if (a.type_ != b.type_) return std::partial_ordering::unordered;
  const auto onlyEqual = [](bool isEqual) {
    return isEqual ? std::partial_ordering::equivalent : std::partial_ordering::unordered;
  };
  switch (a.type_) {
    case JsonType::number:
      return detail::compareNumbers(a.content_, b.content_) <=> 0;
    case JsonType::string:
      return a.content_.textView() <=> b.content_.textView();
    case JsonType::unknown:
      return std::partial_ordering::unordered;
    default:
      return onlyEqual(detail::isEqual(a.content_, b.content_));
  }
}

}  // namespace tolvanite

std::size_t std::hash<tolvanite::Json>::operator()(const tolvanite::Json& json) const noexcept {
  // Never equal to anything, an unknown value may hash as null.
  return std::hash<tolvanite::ManagedObject>()(json.managedJsonObject());
}
