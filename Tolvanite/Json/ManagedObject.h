// A raw element of a JSON document: a number value, a text, the null marker, or a list or
// text-keyed dictionary of such elements. It takes 16 bytes, and a copy is a reference to shared
// content that is copied only when one of its owners changes it.
//
//   const ManagedObject track = ManagedDictionary{
//       {"title", "Blue"}, {"year", 1971}, {"tags", ManagedArray{"folk", nullptr}}};
//   track.dictionary().forced("a track")["year"].number()->intValue()       1971
//   ManagedObject::from(std::vector{1, 2, 3})                               a list
//
// A value of any other type can be wrapped, too: such an element has no JSON form, which whoever
// writes it reports.
#pragma once

#include <any>
#include <concepts>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <iterator>
#include <optional>
#include <ranges>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Json/NumberValue.h>
#include <Tolvanite/Json/detail/Cell.h>
#include <Tolvanite/Json/detail/OtherKind.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

class ManagedArray;
class ManagedDictionary;
class ManagedItems;
class ManagedObject;

/// The one value that stands for JSON null in raw containers.
struct NullMarker {
  /// "null".
  std::string description() const { return "null"; }
  friend bool operator==(NullMarker, NullMarker) = default;
};

namespace detail {

/// Texts, for raw elements: what views as one, but no null pointer.
template <typename T>
concept ManagedText = std::convertible_to<const T&, std::string_view> && !std::is_null_pointer_v<T>;

template <typename T>
concept ManagedNothing = std::is_null_pointer_v<T> || std::same_as<T, std::nullopt_t>;

/// Ranges that become lists. A range of itself, as a path is, would have no end.
template <typename T>
concept ManagedRange = std::ranges::input_range<const T> && !ManagedText<T> &&
                       !std::same_as<std::ranges::range_value_t<const T>, T>;

/// Types of JSON values, which give their raw form.
template <typename T>
concept HasManagedForm = requires(const T& value) {
  { value.managedJsonObject() } -> std::same_as<ManagedObject>;
};

TOLVANITE_EXPORT Cell makeOtherCell(std::any value, const OtherKind& kind);

}  // namespace detail

/// A raw element.
class TOLVANITE_EXPORT ManagedObject {
 public:
  /// What an element holds: truth values are numbers, and `other` is a wrapped value.
  enum class Kind { null, number, text, list, dictionary, other };

  /// The null marker.
  /// @{
  ManagedObject() noexcept = default;
  ManagedObject(NullMarker) noexcept {}
  template <detail::ManagedNothing T>
  ManagedObject(T) noexcept {}
  /// @}
  /// A number of the kind of its type; a bool becomes a truth value.
  /// @{
  template <detail::PlainNumber T>
  ManagedObject(T value) noexcept : cell_(detail::numberCell(value)) {}
  ManagedObject(const NumberValue& number) noexcept : cell_(number.cell()) {}
  /// @}
  /// A text.
  template <detail::ManagedText T>
  ManagedObject(const T& text) : cell_(detail::Cell::text(text)) {}
  /// Containers.
  /// @{
  ManagedObject(const ManagedArray& list) noexcept;
  ManagedObject(ManagedArray&& list) noexcept;
  ManagedObject(const ManagedDictionary& dictionary) noexcept;
  ManagedObject(ManagedDictionary&& dictionary) noexcept;
  /// @}
  /// The raw form of a `Json`.
  template <detail::HasManagedForm T>
  ManagedObject(const T& json) : ManagedObject(json.managedJsonObject()) {}
  /// What an optional holds, or the null marker.
  template <typename T>
    requires std::constructible_from<ManagedObject, const T&>
  ManagedObject(const std::optional<T>& optional) {
    if (optional.has_value()) *this = ManagedObject(*optional);
  }

  /// A raw element of a value of any type: what converts to one is converted, ranges become lists
  /// and maps with text keys dictionaries, with their elements made by this function, too; whatever
  /// else is wrapped as it is, a map with other keys among it.
  template <typename T>
  static ManagedObject from(const T& value);

  /// Wraps a value of any type as it is; of an optional what it holds, or the null marker.
  template <typename T>
  static ManagedObject wrapping(T value) {
    if constexpr (detail::OptionalLike<T>) {
      return value.has_value() ? wrapping(*std::move(value)) : ManagedObject();
    } else {
      return ManagedObject(
          detail::makeOtherCell(std::any(std::move(value)), detail::OtherKind::of<T>()));
    }
  }

  /// What it holds.
  Kind kind() const noexcept {
    if (cell_.isText()) return Kind::text;
    switch (cell_.tag()) {
      case detail::CellTag::null:
        return Kind::null;
      case detail::CellTag::list:
        return Kind::list;
      case detail::CellTag::dictionary:
        return Kind::dictionary;
      case detail::CellTag::other:
        return Kind::other;
      default:
        return Kind::number;
    }
  }
  /// Whether it is the null marker.
  bool isNull() const noexcept { return cell_.tag() == detail::CellTag::null; }

  /// The content, if this is of that kind; else absent.
  /// @{
  Optional<NumberValue> number() const {
    if (!cell_.isNumber()) return {};
    return NumberValue(cell_);
  }
  Optional<std::string> text() const;
  Optional<ManagedArray> list() const;
  Optional<ManagedDictionary> dictionary() const;
  /// @}
  /// The same text without a copy, valid while this element is neither changed nor gone.
  Optional<std::string_view> textView() const& {
    if (!cell_.isText()) return {};
    return cell_.textView();
  }
  Optional<std::string_view> textView() && = delete;

  /// The element of a list at an index, the value of a dictionary under a key; null if there is
  /// none and for every other kind. Valid while this element is neither changed nor gone.
  /// @{
  const ManagedObject* find(Int index) const& noexcept;
  const ManagedObject* find(std::string_view key) const& noexcept;
  const ManagedObject* find(Int index) && = delete;
  const ManagedObject* find(std::string_view key) && = delete;
  /// @}

  /// The elements of a list, the items of a dictionary, to be iterated without a copy; empty for
  /// every other kind. Valid while this element is neither changed nor gone.
  /// @{
  std::span<const ManagedObject> elements() const& noexcept {
    if (cell_.tag() != detail::CellTag::list || cell_.low() == 0) return {};
    return {reinterpret_cast<const ManagedObject*>(cell_.node() + 1), cell_.node()->count};
  }
  std::span<const ManagedObject> elements() && = delete;
  ManagedItems items() const& noexcept;
  ManagedItems items() && = delete;
  /// @}

  /// A wrapped value, if it is of type T; else null.
  template <typename T>
  const T* wrapped() const noexcept {
    return std::any_cast<T>(wrappedValue());
  }
  /// Whether this wraps a dictionary whose keys are no texts.
  bool isDictionaryWithOtherKeys() const noexcept;

  /// JSON for people: texts between double quotes, not escaped. A wrapped value shows its text
  /// form.
  std::string description() const;

  /// Equality by content: numbers and truth values by value, dictionaries in any order. Wrapped
  /// values are equal if they are of one type and equal.
  friend TOLVANITE_EXPORT bool operator==(const ManagedObject& a, const ManagedObject& b) noexcept;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const ManagedObject& object);

  /// For the JSON types, which hold elements in the same way.
  /// @{
  explicit ManagedObject(detail::Cell cell) noexcept : cell_(std::move(cell)) {}
  const detail::Cell& cell() const noexcept { return cell_; }
  detail::Cell& cell() noexcept { return cell_; }
  static const ManagedObject& of(const detail::Cell& cell) noexcept {
    return reinterpret_cast<const ManagedObject&>(cell);
  }
  /// @}

 private:
  const std::any* wrappedValue() const noexcept;

  detail::Cell cell_;
};

static_assert(sizeof(ManagedObject) == sizeof(detail::Cell));

/// A list of raw elements. Elements are read in constant time; writing to a list that shares its
/// content copies the references to its elements first.
class TOLVANITE_EXPORT ManagedArray {
 public:
  using value_type = ManagedObject;
  using const_iterator = const ManagedObject*;
  using iterator = const_iterator;

  /// Without elements.
  ManagedArray() noexcept : cell_(detail::CellTag::list, std::uint64_t{0}) {}
  /// The elements as listed. Mind that a list in braces is one element of a new list.
  ManagedArray(std::initializer_list<ManagedObject> elements) : ManagedArray() {
    for (const ManagedObject& element : elements) append(element);
  }
  /// The elements of a range, each as `ManagedObject::from` makes it.
  template <detail::ManagedRange Range>
    requires(!std::derived_from<Range, ManagedArray>)
  explicit ManagedArray(const Range& range) : ManagedArray() {
    for (const auto& element : range) {
      append(ManagedObject::from<std::ranges::range_value_t<Range>>(element));
    }
  }

  ManagedArray(const ManagedArray&) noexcept = default;
  ManagedArray& operator=(const ManagedArray&) noexcept = default;
  /// The other list is empty afterwards.
  /// @{
  ManagedArray(ManagedArray&& other) noexcept : ManagedArray() { cell_.swap(other.cell_); }
  ManagedArray& operator=(ManagedArray&& other) noexcept {
    ManagedArray moved(std::move(other));
    cell_.swap(moved.cell_);
    return *this;
  }
  /// @}
  ~ManagedArray() = default;

  /// How many elements there are.
  Int count() const noexcept { return static_cast<Int>(size()); }
  /// The same for the standard ranges.
  std::size_t size() const noexcept { return cell_.elementCount(); }
  /// Whether there are none.
  /// @{
  bool isEmpty() const noexcept { return size() == 0; }
  bool empty() const noexcept { return isEmpty(); }
  /// @}

  /// The elements as a contiguous range. Valid while the list is neither changed nor gone.
  /// @{
  const_iterator begin() const noexcept;
  const_iterator end() const noexcept { return begin() + size(); }
  /// @}

  /// The element at an index, which must be there, else it is fatal.
  const ManagedObject& operator[](Int index) const& { return begin()[checked(index)]; }
  ManagedObject operator[](Int index) && { return begin()[checked(index)]; }
  /// Replaces the element at an index, which must be there, else it is fatal.
  void set(Int index, ManagedObject element);
  /// Adds an element behind the last one. Constant on average.
  void append(ManagedObject element);
  /// Takes the element at an index out, which must be there, else it is fatal. Linear.
  void remove(Int index);
  /// Makes room for so many elements in all.
  void reserve(Int count);

  /// The list as JSON for people, as ManagedObject shows it.
  std::string description() const { return ManagedObject(*this).description(); }
  friend bool operator==(const ManagedArray& a, const ManagedArray& b) noexcept {
    return ManagedObject::of(a.cell_) == ManagedObject::of(b.cell_);
  }

  /// For the JSON types.
  /// @{
  explicit ManagedArray(detail::Cell cell) noexcept : cell_(std::move(cell)) {}
  const detail::Cell& cell() const noexcept { return cell_; }
  detail::Cell takeCell() && noexcept { return std::move(cell_); }
  /// @}

 private:
  std::size_t checked(Int index) const {
    if (index < 0 || index >= count()) fatalIndexOutOfRange(index, count());
    return static_cast<std::size_t>(index);
  }

  detail::Cell cell_;
};

/// A dictionary of raw elements by texts. It is iterated in the order in which the keys came, which
/// nothing promises. Reading takes constant time; writing to a dictionary that shares its content
/// copies the references to its values first. Dictionaries of the same keys share them.
class TOLVANITE_EXPORT ManagedDictionary {
 public:
  /// A key and its value as a literal lists them. The value can be moved out of the list.
  struct Entry {
    std::string_view key;         ///< Need not outlive the list.
    mutable ManagedObject value;  ///< Moved into the dictionary that is made of the list.
  };
  /// A key and its value, as iterating gives them.
  struct Item {
    std::string_view key;        ///< Valid while the dictionary is neither changed nor gone.
    const ManagedObject& value;  ///< Valid while the dictionary is neither changed nor gone.
  };
  class Iterator;
  using iterator = Iterator;
  using const_iterator = Iterator;

  /// Without keys.
  ManagedDictionary() noexcept : cell_(detail::CellTag::dictionary, std::uint64_t{0}) {}
  /// The entries as listed; of a repeated key the last one counts.
  ManagedDictionary(std::initializer_list<Entry> entries);
  /// The entries of a map, its values as `ManagedObject::from` makes them.
  template <std::ranges::input_range Range>
    requires requires { typename Range::mapped_type; } &&
             detail::ManagedText<typename Range::key_type>
  explicit ManagedDictionary(const Range& map) : ManagedDictionary() {
    for (const auto& [key, value] : map) set(key, ManagedObject::from(value));
  }

  ManagedDictionary(const ManagedDictionary&) noexcept = default;
  ManagedDictionary& operator=(const ManagedDictionary&) noexcept = default;
  /// The other dictionary is empty afterwards.
  /// @{
  ManagedDictionary(ManagedDictionary&& other) noexcept : ManagedDictionary() {
    cell_.swap(other.cell_);
  }
  ManagedDictionary& operator=(ManagedDictionary&& other) noexcept {
    ManagedDictionary moved(std::move(other));
    cell_.swap(moved.cell_);
    return *this;
  }
  /// @}
  ~ManagedDictionary() = default;

  /// How many keys there are.
  Int count() const noexcept { return static_cast<Int>(size()); }
  /// The same for the standard ranges.
  std::size_t size() const noexcept { return cell_.elementCount(); }
  /// Whether there are none.
  /// @{
  bool isEmpty() const noexcept { return size() == 0; }
  bool empty() const noexcept { return isEmpty(); }
  /// @}

  /// The items as a range. Valid while the dictionary is neither changed nor gone.
  /// @{
  Iterator begin() const noexcept;
  Iterator end() const noexcept;
  /// @}

  /// The value under a key; null when there is none.
  const ManagedObject* find(std::string_view key) const noexcept;
  /// Whether there is a value under a key, be it the null marker.
  bool contains(std::string_view key) const noexcept { return find(key) != nullptr; }
  /// The value under a key, which must be there, else it is fatal.
  ManagedObject operator[](std::string_view key) const;
  /// The keys in the order of iteration.
  std::vector<std::string> keys() const;

  /// Sets the value under a key, which is added when it is new.
  void set(std::string_view key, ManagedObject value);
  /// Takes a key out; false if it was not there. Linear.
  bool remove(std::string_view key);

  /// The dictionary as JSON for people, as ManagedObject shows it.
  std::string description() const { return ManagedObject(*this).description(); }
  friend bool operator==(const ManagedDictionary& a, const ManagedDictionary& b) noexcept {
    return ManagedObject::of(a.cell_) == ManagedObject::of(b.cell_);
  }

  /// For the JSON types.
  /// @{
  explicit ManagedDictionary(detail::Cell cell) noexcept : cell_(std::move(cell)) {}
  const detail::Cell& cell() const noexcept { return cell_; }
  detail::Cell takeCell() && noexcept { return std::move(cell_); }
  /// @}

 private:
  detail::Cell cell_;
};

/// Walks the items of a dictionary; valid until it changes.
class ManagedDictionary::Iterator {
 public:
  using value_type = Item;
  using difference_type = std::ptrdiff_t;

  Iterator() = default;
  /// @cond
  Iterator(const detail::Cell* key, const detail::Cell* value) : key_(key), value_(value) {}
  /// @endcond

  Item operator*() const { return {key_->textView(), ManagedObject::of(*value_)}; }
  Iterator& operator++() {
    ++key_;
    ++value_;
    return *this;
  }
  Iterator operator++(int) {
    Iterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const Iterator& a, const Iterator& b) { return a.value_ == b.value_; }

 private:
  const detail::Cell* key_ = nullptr;
  const detail::Cell* value_ = nullptr;
};

/// The items of a dictionary as a range. Valid while the dictionary is neither changed nor gone.
class ManagedItems {
 public:
  /// The items from `begin` on, those of one dictionary.
  ManagedItems(ManagedDictionary::Iterator begin, ManagedDictionary::Iterator end)
      : begin_(begin), end_(end) {}
  /// The first item, and behind the last.
  /// @{
  ManagedDictionary::Iterator begin() const { return begin_; }
  ManagedDictionary::Iterator end() const { return end_; }
  /// @}

 private:
  ManagedDictionary::Iterator begin_;
  ManagedDictionary::Iterator end_;
};

inline ManagedObject::ManagedObject(const ManagedArray& list) noexcept : cell_(list.cell()) {}
inline ManagedObject::ManagedObject(ManagedArray&& list) noexcept
    : cell_(std::exchange(list, ManagedArray()).takeCell()) {}
inline ManagedObject::ManagedObject(const ManagedDictionary& dictionary) noexcept
    : cell_(dictionary.cell()) {}
inline ManagedObject::ManagedObject(ManagedDictionary&& dictionary) noexcept
    : cell_(std::exchange(dictionary, ManagedDictionary()).takeCell()) {}

template <typename T>
ManagedObject ManagedObject::from(const T& value) {
  if constexpr (std::constructible_from<ManagedObject, const T&>) {
    return ManagedObject(value);
  } else if constexpr (detail::OptionalLike<T>) {
    return value.has_value() ? from(*value) : ManagedObject();
  } else if constexpr (std::constructible_from<ManagedDictionary, const T&>) {
    return ManagedDictionary(value);
  } else if constexpr (!detail::MapLike<T> && std::constructible_from<ManagedArray, const T&>) {
    return ManagedArray(value);
  } else {
    return wrapping(value);
  }
}

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::ManagedObject> {
  TOLVANITE_EXPORT std::size_t operator()(const tolvanite::ManagedObject& object) const noexcept;
};
