// The small types around Json: what it can be, why it could not be read, and the steps of a path
// into it.
//
//   const JsonKey step = 3;                  // an index; JsonKey("name") is a key
//   textForm(JsonType::dictionary)           "dictionary"
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// What a Json is. Its text form is the name of the case.
enum class JsonType : std::uint8_t { number, string, boolean, array, dictionary, null, unknown };

/// The type of a raw value from 0 to 6; absent for any other.
TOLVANITE_EXPORT Optional<JsonType> jsonType(Int rawValue);
/// The name that the texts of this library give a type; `boolean` is "bool" there.
TOLVANITE_EXPORT std::string_view nameOf(JsonType type);
TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, JsonType type);

/// Why a Json could not be read, or not be made.
enum class JsonError : std::uint8_t {
  /// A raw element is of no kind that JSON has.
  unsupportedType,
  /// An index is outside of the array.
  indexOutOfBounds,
  /// A step into a value of the wrong type; a merge of different types.
  invalidType,
  /// The dictionary has no such key.
  notExist,
  /// The text can't be turned into UTF-8.
  notUtf8Encoded,
};

TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, JsonError error);

/// A JsonError as it is thrown.
class TOLVANITE_EXPORT JsonFailure final : public Error {
 public:
  /// Its text is "Json: " and the name of the error.
  explicit JsonFailure(JsonError error);
  ~JsonFailure() override;

  /// What went wrong.
  JsonError error() const noexcept { return error_; }
  friend bool operator==(const JsonFailure& a, const JsonFailure& b) {
    return a.error_ == b.error_;
  }

 private:
  JsonError error_;
};

/// One step into a Json: an index of an array or a key of a dictionary.
class JsonKey {
 public:
  /// An index, of any integer type but bool and char, or a key, whose text is copied. Whether it
  /// leads anywhere shows where it is used.
  /// @{
  template <std::integral T>
    requires(!std::same_as<T, bool> && !std::same_as<T, char>)
  JsonKey(T index) : step_(static_cast<Int>(index)) {}
  JsonKey(std::string key) : step_(std::move(key)) {}
  JsonKey(std::string_view key) : step_(std::string(key)) {}
  JsonKey(const char* key) : step_(std::string(key)) {}
  /// @}

  /// Whether it is an index and not a key.
  bool isIndex() const noexcept { return step_.index() == 0; }
  /// Absent for a step of the other case.
  /// @{
  Optional<Int> index() const {
    return isIndex() ? Optional<Int>(std::get<0>(step_)) : std::nullopt;
  }
  Optional<std::string> key() const {
    return isIndex() ? std::nullopt : Optional<std::string>(std::get<1>(step_));
  }
  /// @}

  friend bool operator==(const JsonKey&, const JsonKey&) = default;

 private:
  friend class JsonPathStep;
  std::variant<Int, std::string> step_;
};

/// A host's own types that can be steps give theirs by `jsonKey()`, as a value or a reference.
template <typename T>
concept JsonSubscriptType = requires(const T& value) {
  { value.jsonKey() } -> std::convertible_to<const JsonKey&>;
};

/// A step as the subscripts of Json take it. It refers to the text or key that it is made from, and
/// so is for one expression.
class JsonPathStep {
 public:
  /// An index, of any integer type but bool and char, a key by its text or as a JsonKey, or what a
  /// host's own type gives by `jsonKey()`.
  /// @{
  template <std::integral T>
    requires(!std::same_as<T, bool> && !std::same_as<T, char>)
  JsonPathStep(T index) noexcept : number_(static_cast<Int>(index)) {}
  template <typename T>
    requires std::convertible_to<const T&, std::string_view>
  JsonPathStep(const T& key) : JsonPathStep(std::string_view(key), 0) {}
  JsonPathStep(const JsonKey& key) noexcept : JsonPathStep(0) {
    if (const auto* text = std::get_if<std::string>(&key.step_)) {
      *this = JsonPathStep(std::string_view(*text), 0);
    } else {
      number_ = std::get<Int>(key.step_);
    }
  }
  template <JsonSubscriptType T>
    requires std::is_lvalue_reference_v<decltype(std::declval<const T&>().jsonKey())>
  JsonPathStep(const T& value) noexcept : JsonPathStep(value.jsonKey()) {}
  /// @}
  /// A key that is given by value is kept in an argument that lives as long as the expression does.
  template <JsonSubscriptType T>
    requires(!std::is_lvalue_reference_v<decltype(std::declval<const T&>().jsonKey())>)
  JsonPathStep(const T& value, JsonKey&& kept = JsonKey(0))
      : JsonPathStep(kept = value.jsonKey()) {}

  /// Whether it is an index and not a key.
  bool isIndex() const noexcept { return key_ == nullptr; }
  /// The index, which may be negative. Not to be asked of a key.
  Int index() const noexcept { return number_; }
  /// The key. Not to be asked of an index.
  std::string_view key() const noexcept { return {key_, static_cast<std::size_t>(number_)}; }

 private:
  JsonPathStep(std::string_view key, int /*tag*/) noexcept
      : key_(key.data() == nullptr ? "" : key.data()), number_(static_cast<Int>(key.size())) {}

  const char* key_ = nullptr;
  Int number_;
};

/// A position in a Json as a collection, of an array, of a dictionary with values of type Value, or
/// of anything else. Positions of different cases are neither equal nor ordered.
template <typename Value>
class JsonIndex {
 public:
  /// What the position is in; `null` for all that is neither array nor dictionary.
  enum class Case { array, dictionary, null };

  /// The position of an element, counted from 0, or of the end behind the last; nothing is checked.
  /// @{
  static JsonIndex array(Int position) { return {Case::array, position}; }
  static JsonIndex dictionary(Int position) { return {Case::dictionary, position}; }
  /// @}
  /// The only position in all that is neither array nor dictionary: start and end in one.
  static JsonIndex null() { return {Case::null, 0}; }

  /// What the position is in.
  Case indexCase() const noexcept { return case_; }
  /// How many elements are before it; 0 for `null`.
  Int position() const noexcept { return position_; }

  friend bool operator==(const JsonIndex&, const JsonIndex&) = default;
  friend std::partial_ordering operator<=>(const JsonIndex& a, const JsonIndex& b) {
    if (a.case_ != b.case_) return std::partial_ordering::unordered;
    return a.position_ <=> b.position_;
  }

 private:
  JsonIndex(Case indexCase, Int position) : case_(indexCase), position_(position) {}

  Case case_;
  Int position_;
};

}  // namespace tolvanite
