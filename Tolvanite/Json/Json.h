// A JSON document or any part of one. Reading never fails: what is not there is a null that knows
// why, so a chain of subscripts is always legal. Writing is strict: what can't be written ends the
// program.
//
//   Json doc = Json::parseString(R"({"user": {"name": "Ann", "ids": [7, 8]}})");
//   doc["user"]["ids"][1].intValue()             8
//   doc["user"]["age"].asInt().isNone()          true; so is doc["user"]["age"][4].asInt()
//   doc["user"]["name"] = "Bea";
//   doc[{"user", "ids", 0}] = 9;
//   for (const auto& [key, value] : doc["user"]) std::cout << key << value << '\n';
//
// Braces make a dictionary; the containers within are named. Those of the standard library, times
// and the host's own types become a Json by `makeJson` and `jsonObjectValue`: JsonValueMapping.h.
//
//   Json made = {{"ids", ManagedArray{7, 8}}, {"at", ManagedDictionary{{"x", 1}}}};
//   made["ids"].merge(ManagedArray{9});                  // [7, 8, 9], in place
//   made["tags"] = makeJson(std::vector{"a", "b"});
//
// A Json is a value: a copy and a part of a document cost a reference, and writing copies only
// what another value shares. The text of a document is made by JsonWriter.
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <iterator>
#include <source_location>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/FileLocation.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Json/JSONSerialization.h>
#include <Tolvanite/Json/JsonTypes.h>
#include <Tolvanite/Json/ManagedObject.h>
#include <Tolvanite/Json/NumberValue.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

class JsonPlace;

class TOLVANITE_EXPORT Json {
 public:
  /// The types that go with a Json, under short names: `Json::JsonType::array`.
  /// @{
  using JsonType = tolvanite::JsonType;
  using JsonError = tolvanite::JsonError;
  using Index = JsonIndex<ManagedObject>;
  using ReadingOptions = JSONSerialization::ReadingOptions;
  using WritingOptions = JSONSerialization::WritingOptions;
  /// @}
  /// What iterating gives: a key, or an index as text, and the value there.
  using Element = std::pair<std::string, Json>;
  class Iterator;
  using iterator = Iterator;
  using const_iterator = Iterator;

  /// Null.
  Json() noexcept = default;
  /// From whatever a raw element is made of: numbers, truth values, texts, raw containers, nullptr.
  template <typename T>
    requires(std::constructible_from<ManagedObject, const T&> && !std::derived_from<T, Json>)
  Json(const T& jo) {
    setManagedJsonObject(ManagedObject(jo));
  }
  /// A dictionary of the pairs as listed, of a repeated key the last one. A list is a ManagedArray.
  Json(std::initializer_list<ManagedDictionary::Entry> entries)
      : Json(ManagedDictionary(entries)) {}

  Json(const Json&) noexcept = default;
  /// The other value is null afterwards.
  Json(Json&& other) noexcept { swap(other); }
  /// Assigning to a part that was only read would be lost; so it does not compile.
  /// @{
  Json& operator=(const Json&) & noexcept = default;
  Json& operator=(Json&& other) & noexcept {
    Json moved(std::move(other));
    swap(moved);
    return *this;
  }
  /// @}
  ~Json() = default;
  /// Exchanges the values, and the errors with them.
  void swap(Json& other) noexcept {
    content_.swap(other.content_);
    std::swap(type_, other.type_);
    std::swap(error_, other.error_);
  }

  /// From a raw element in which each wrapped Json, at any depth, is replaced by its raw form.
  static Json unwrap(const ManagedObject& object);
  /// From a raw element in which each wrapped Json is replaced by its raw form, each time by its
  /// text as "1970-01-01T00:00:00.500Z", and each file location by its absolute string.
  static Json joWithAdditions(const ManagedObject& object);
  /// From JSON text. Throws a JSONSerialization::Errur with the place of what is malformed, a
  /// JsonFailure of `notUtf8Encoded` if the text is not UTF-8.
  static Json parseString(std::string_view text);
  /// From JSON text in bytes. Throws a JSONSerialization::Errur.
  static Json fromData(const ByteBuffer& data,
                       ReadingOptions options = ReadingOptions::allowFragments);

  /// A null, and one that knows why it is null.
  /// @{
  static Json null() noexcept { return {}; }
  static Json null(JsonError error) noexcept;
  /// @}

  /// Takes over a raw element, and clears the error unless it is of no kind that JSON has.
  void setManagedJsonObject(const ManagedObject& object) noexcept;
  /// Nothing: null.
  void setManagedJsonObject(std::nullopt_t) noexcept { setManagedJsonObject(ManagedObject()); }
  /// The raw element; null for null and unknown values.
  ManagedObject managedJsonObject() const { return ManagedObject(content_); }

  /// Deliberately dead: fatal, "who uses this". `managedJsonObject` is meant.
  [[noreturn]] static void object(std::source_location location = std::source_location::current());

  /// What it is: null, too, if it was not there.
  JsonType type() const noexcept { return type_; }
  /// Why there is no value: `unsupportedType` for an unknown one, else why it is null; absent for
  /// all that was there, a null of the document among it.
  Optional<JsonError> error() const noexcept { return error_; }
  /// Whether it was there when it was read: not after `indexOutOfBounds`, `invalidType` and
  /// `notExist`.
  bool exists() const noexcept;

  /// The elements of an array, absent or empty otherwise; `arrayObject` gives the raw list, which
  /// costs nothing.
  /// @{
  Optional<std::vector<Json>> array() const;
  std::vector<Json> arrayValue() const {
    return array().whenNil([] { return std::vector<Json>(); });
  }
  Optional<ManagedArray> arrayObject() const;
  /// @}

  /// The values of a dictionary, absent or empty otherwise; `dictionaryObject` gives the raw
  /// dictionary, which costs nothing.
  /// @{
  Optional<Dictionary<std::string, Json>> dictionary() const;
  Dictionary<std::string, Json> dictionaryValue() const;
  Optional<ManagedDictionary> dictionaryObject() const;
  /// @}

  /// The truth value, absent for every other type; `boolValue` takes a number that is not 0, and
  /// the texts "true", "y" and "t" in any case for true, too, and all else for false.
  /// @{
  Optional<bool> asBool() const;
  bool boolValue() const;
  /// @}

  /// The text, absent for every other type; `stringValue` gives the text of a number or truth
  /// value, too, and all else an empty one.
  /// @{
  Optional<std::string> string() const;
  std::string stringValue() const;
  /// @}

  /// The number, or 1 or 0 for a truth value, else absent; `numberValue` reads a text as a decimal
  /// number, too (0 when it is none as a whole), and gives 0.0 for all else.
  /// @{
  Optional<NumberValue> number() const;
  NumberValue numberValue() const;
  /// @}

  /// The null marker of a null, else absent. Its own name, `null`, makes a Json here.
  Optional<NullMarker> nullMarker() const;

  /// Numbers by the conversions of NumberValue: absent for a value that is neither number nor truth
  /// value; with `Value` behind the name through `numberValue`, so that a text counts, too.
  /// @{
  Optional<double> asDouble() const { return read(&NumberValue::doubleValue); }
  double doubleValue() const { return numberValue().doubleValue(); }
  Optional<float> asFloat() const { return read(&NumberValue::floatValue); }
  float floatValue() const { return numberValue().floatValue(); }
  Optional<Int> asInt() const { return read(&NumberValue::integerValue); }
  Int intValue() const { return numberValue().integerValue(); }
  Optional<std::uint64_t> uInt() const { return read(&NumberValue::unsignedIntegerValue); }
  std::uint64_t uIntValue() const { return numberValue().unsignedIntegerValue(); }
  Optional<std::int8_t> int8() const { return read(&NumberValue::charValue); }
  std::int8_t int8Value() const { return numberValue().charValue(); }
  Optional<std::uint8_t> uInt8() const { return read(&NumberValue::unsignedCharValue); }
  std::uint8_t uInt8Value() const { return numberValue().unsignedCharValue(); }
  Optional<std::int16_t> int16() const { return read(&NumberValue::shortValue); }
  std::int16_t int16Value() const { return numberValue().shortValue(); }
  Optional<std::uint16_t> uInt16() const { return read(&NumberValue::unsignedShortValue); }
  std::uint16_t uInt16Value() const { return numberValue().unsignedShortValue(); }
  Optional<std::int32_t> int32() const { return read(&NumberValue::intValue); }
  std::int32_t int32Value() const { return numberValue().intValue(); }
  Optional<std::uint32_t> uInt32() const { return read(&NumberValue::unsignedIntValue); }
  std::uint32_t uInt32Value() const { return numberValue().unsignedIntValue(); }
  Optional<std::int64_t> int64() const { return read(&NumberValue::longLongValue); }
  std::int64_t int64Value() const { return numberValue().longLongValue(); }
  Optional<std::uint64_t> uInt64() const { return read(&NumberValue::unsignedLongLongValue); }
  std::uint64_t uInt64Value() const { return numberValue().unsignedLongLongValue(); }
  /// @}

  /// A text as a file location. A text without percent escapes is percent-encoded first; one
  /// without "file:" is a path, a relative one from the process's current directory. Absent for a
  /// text that is no file location, for a relative path if that directory is gone, and for every
  /// other type.
  Optional<FileLocation> url() const;
  /// A text of the form "1970-01-01T00:00:00.500Z" as the time that it tells; absent if there is no
  /// such date and for every other type. `dateValue` gives the start of 1970 then.
  /// @{
  Optional<AbsoluteTime> date() const;
  AbsoluteTime dateValue() const {
    return date().whenNil([] { return AbsoluteTime(); });
  }
  /// @}

  /// The part behind one step: an index into an array or a key of a dictionary; else a null with
  /// the error `indexOutOfBounds`, `notExist` or `invalidType`. Constant.
  Json operator[](const JsonPathStep& step) const&;
  /// The part behind several steps; the last one decides on the error. Without steps, the value.
  /// @{
  Json operator[](std::span<const JsonPathStep> path) const&;
  Json operator[](std::initializer_list<JsonPathStep> path) const&;
  Json operator[](const std::vector<JsonKey>& path) const&;
  /// @}
  /// The same parts of a document that can be written to. Assigning to one sets it:
  ///
  ///   doc["user"]["ids"][0] = 7;      doc[{"user", "ids", 0}] = 7;
  ///
  /// The last step may be a new key. All before it must be there, an index must be below the count,
  /// and the last step must fit the type, else it is fatal:
  /// `Json.subscript(key:"KEY") on type TYPE`, `Json.subscript(index:INDEX set on type TYPE`,
  /// `Json.subscript(index:INDEX set out of bounds: COUNT`. So is a value with an error, which a
  /// path of several steps stores as null. Constant, but for what is shared.
  /// @{
  JsonPlace operator[](const JsonPathStep& step) &;
  JsonPlace operator[](std::initializer_list<JsonPathStep> path) &;
  JsonPlace operator[](const std::vector<JsonKey>& path) &;
  /// @}
  /// What `doc[path] = value` does.
  void set(std::span<const JsonPathStep> path, const Json& value);

  /// As a collection of pairs: of an array each index as text, of a dictionary each key. Every
  /// other value is empty.
  /// @{
  Index startIndex() const noexcept;
  Index endIndex() const noexcept;
  Index indexAfter(const Index& index) const noexcept;
  Element operator[](const Index& index) const;
  Iterator begin() const noexcept;
  Iterator end() const noexcept;
  /// @}

  /// Merges another value of the same type into this one: arrays are joined, dictionaries merged
  /// key by key, where a value of another type is replaced, and a value of a kind that JSON does
  /// not have becomes null; every other value is replaced. Linear in `other`, but for what is
  /// shared. Throws a JsonFailure of `invalidType` if the types differ, and changes nothing then,
  /// unless `typecheck` is false: then this value is replaced.
  void merge(const Json& other, bool typecheck = true);
  /// A copy, merged.
  Json merged(const Json& other) const;

  /// The shape of a document as a set of texts such as ".user.ids.array#2"; array elements are not
  /// entered. Fatal for an unknown value: ".unknown".
  Set<std::string> collectKeyPaths() const;

  /// Numbers by value, texts by bytes, the other types only by equality of their content. Values of
  /// different types are never equal nor ordered, a truth value and a number among them, and an
  /// unknown value not even with itself.
  friend TOLVANITE_EXPORT std::partial_ordering operator<=>(const Json& a, const Json& b) noexcept;
  friend bool operator==(const Json& a, const Json& b) noexcept { return (a <=> b) == 0; }

  /// JSON text for people, not for storage: a text at the root stands without quotes, and no
  /// escapes but those of `"` and `\` in texts are made. Absent if there is an unknown value.
  Optional<std::string> makeStringPlain() const;
  /// JSON text by the plain writer. Throws a JSONSerialization::Errur. Without options the text is
  /// indented and its keys are sorted.
  /// @{
  std::string makeStringSystem(Optional<WritingOptions> options = {}) const;
  ByteBuffer makeData(WritingOptions options = WritingOptions::none) const;
  /// @}
  /// The text of JsonWriter with sorted keys. Throws a JsonWriter::Errur.
  std::string makeStringJsonWriter(
      std::string_view indentString = "\t",
      const Optional<std::vector<std::string>>& sortKeyOrder = {}) const;

  /// "Json(type=TYPE, content=PLAIN TEXT)"; fatal for an unknown value.
  std::string description() const;
  /// "Json(type=TYPE)".
  std::string debugDescription() const;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const Json& json);

 private:
  friend class JsonPlace;

  template <typename T>
  Optional<T> read(T (NumberValue::*conversion)() const noexcept) const {
    const Optional<NumberValue> value = number();
    if (value.isNone()) return {};
    return ((*value).*conversion)();
  }

  // Merges content of equal types; nested content is replaced where the types differ.
  static void mergeContent(detail::Cell& self, const detail::Cell& other);

  detail::Cell content_;
  JsonType type_ = JsonType::null;
  Optional<JsonError> error_;
};

/// Walks the pairs of a Json, which it keeps.
class Json::Iterator {
 public:
  using value_type = Element;
  using difference_type = std::ptrdiff_t;

  Iterator() = default;
  /// At a position of a value.
  Iterator(Json json, Index index) : json_(std::move(json)), index_(index) {}

  Element operator*() const { return json_[index_]; }
  Iterator& operator++() {
    index_ = json_.indexAfter(index_);
    return *this;
  }
  Iterator operator++(int) {
    Iterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const Iterator& a, const Iterator& b) { return a.index_ == b.index_; }

 private:
  Json json_;
  Index index_ = Index::null();
};

/// A part of a document that can be written to. It reads as the Json that it was when it was made,
/// and is written to at once or never: kept in a variable it is a mere value.
class TOLVANITE_EXPORT JsonPlace : public Json {
 public:
  /// A mere value: what is assigned to the copy stays in it and does not reach the document.
  JsonPlace(const JsonPlace& other) noexcept : Json(other) {}

  /// Sets this part of the document.
  /// @{
  void operator=(const Json& value) && { std::move(*this).assign(value); }
  void operator=(const JsonPlace& value) && { std::move(*this).assign(value); }
  /// @}
  /// Sets this part of the document to a raw element, as assigning does.
  void setManagedJsonObject(const ManagedObject& object) && { std::move(*this).assign(object); }
  /// Merges a value into this part of the document, as `Json::merge`.
  void merge(const Json& other, bool typecheck = true) &&;

  /// Parts of this part, as the subscripts of Json.
  /// @{
  JsonPlace operator[](const JsonPathStep& step) && { return {*this, step}; }
  Json operator[](const JsonPathStep& step) const& { return asConst()[step]; }
  Json operator[](std::initializer_list<JsonPathStep> path) const& { return asConst()[path]; }
  Json operator[](const std::vector<JsonKey>& path) const& { return asConst()[path]; }
  Element operator[](const Index& index) const& { return asConst()[index]; }
  /// @}

 private:
  friend class Json;

  JsonPlace(Json& root, std::vector<JsonPathStep> path);
  JsonPlace(Json& root, const JsonPathStep& step);
  JsonPlace(JsonPlace& parent, const JsonPathStep& step);

  const Json& asConst() const { return *this; }
  std::span<const JsonPathStep> steps() const;
  detail::Cell* resolve();
  void forgetContent();
  void assign(const Json& value) &&;

  // This place is in another one, in a document, or in neither and a mere value. What it refers to
  // is a temporary, too: they all live to the end of one expression.
  Json* root_ = nullptr;
  JsonPlace* parent_ = nullptr;
  // Either a path in one subscript, which may be empty, or a single step.
  bool isPath_ = false;
  std::vector<JsonPathStep> path_;
  JsonPathStep step_ = 0;
};

/// The union of the key paths of several documents.
TOLVANITE_EXPORT Set<std::string> collectKeyPaths(std::span<const Json> documents);

/// A Json of raw containers.
/// @{
inline Json makeJson(const ManagedArray& list) { return list; }
inline Json makeJson(const ManagedDictionary& dictionary) { return dictionary; }
/// @}

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::Json> {
  TOLVANITE_EXPORT std::size_t operator()(const tolvanite::Json& json) const noexcept;
};
