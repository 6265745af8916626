// A growing array of bits, 64 to a word, that knows at any time how many of them are 1.
//
//   BitArray done{true, false, true};
//   done.append(true);
//   done[1] = true;
//   done.cardinality()                                   4
//   for (const bool bit : done) show(bit);
//   textForm(done)                                       "[true, true, true, true]"
#pragma once

#include <bitset>
#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <ranges>
#include <source_location>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/detail/BitWords.h>
#include <Tolvanite/DataStructures/detail/IteratorParts.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Integers.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A growing array of bits. An index that it does not have is fatal: "Index out of range (INDEX)".
class TOLVANITE_EXPORT BitArray {
 public:
  using value_type = bool;
  /// What a place of an array that can be written to gives: it reads and assigns as a bool does.
  using Reference = detail::BitReference<BitArray>;
  class Iterator;
  /// As the standard library calls it: bits are changed by index only.
  /// @{
  using iterator = Iterator;
  using const_iterator = Iterator;
  /// @}

  /// Without bits.
  BitArray() = default;
  /// The bits as listed, of a range of bool such as a std::vector<bool>, or of a std::bitset from
  /// its bit 0 on.
  /// @{
  BitArray(std::initializer_list<bool> bits) { assign(bits); }
  template <typename Range>
    requires(!std::derived_from<std::remove_cvref_t<Range>, BitArray> && detail::RangeOfBits<Range>)
  explicit BitArray(Range&& bits) {
    assign(bits);
  }
  template <std::size_t size>
  explicit BitArray(const std::bitset<size>& bits) {
    assign(std::views::iota(std::size_t{0}, size) |
           std::views::transform([&](std::size_t index) { return bits[index]; }));
  }
  /// @}
  /// So many bits of one value. A negative count is fatal.
  template <CountingInteger Integer>
  BitArray(Integer count, bool repeatedValue,
           std::source_location location = std::source_location::current()) {
    fill(static_cast<Int>(count), repeatedValue, location);
  }

  /// A bit for each number: 0 for 0, else 1.
  /// @{
  template <std::ranges::input_range Range>
    requires CountingInteger<std::ranges::range_value_t<Range>>
  static BitArray fromIntRepresentation(Range&& numbers) {
    BitArray result;
    for (const auto number : numbers) result.append(number != 0);
    return result;
  }
  static BitArray fromIntRepresentation(std::initializer_list<Int> numbers) {
    return fromIntRepresentation<std::initializer_list<Int>&>(numbers);
  }
  /// @}

  BitArray(const BitArray&) = default;
  /// The other array is empty afterwards.
  /// @{
  BitArray(BitArray&& other) noexcept
      : count_(std::exchange(other.count_, 0)),
        lastWord_(std::exchange(other.lastWord_, 0)),
        cardinality_(std::exchange(other.cardinality_, 0)),
        fullWords_(std::exchange(other.fullWords_, {})) {}
  BitArray& operator=(BitArray&& other) noexcept {
    BitArray moved(std::move(other));
    swap(moved);
    return *this;
  }
  /// @}
  BitArray& operator=(const BitArray&) = default;
  ~BitArray() = default;

  /// Exchanges the contents of two arrays. Constant.
  /// @{
  void swap(BitArray& other) noexcept {
    std::swap(count_, other.count_);
    std::swap(lastWord_, other.lastWord_);
    std::swap(cardinality_, other.cardinality_);
    fullWords_.swap(other.fullWords_);
  }
  friend void swap(BitArray& a, BitArray& b) noexcept { a.swap(b); }
  /// @}

  /// The number of bits, whether there are none, and how many of them are 1. Constant.
  /// @{
  Int count() const noexcept { return count_; }
  std::size_t size() const noexcept { return static_cast<std::size_t>(count_); }
  bool isEmpty() const noexcept { return count_ == 0; }
  bool empty() const noexcept { return count_ == 0; }
  Int cardinality() const noexcept { return cardinality_; }
  /// @}

  /// The words that hold the bits, as many as the bits need: bit i in word i / 64 at 1 << (i % 64),
  /// 0 behind the last bit. A copy, linear.
  std::vector<std::uint64_t> bits() const;

  /// The first and the last bit; absent if there is none.
  /// @{
  Optional<bool> first() const { return isEmpty() ? Optional<bool>() : bitAt(0); }
  Optional<bool> last() const { return isEmpty() ? Optional<bool>() : bitAt(count_ - 1); }
  /// @}

  /// The bit at an index.
  /// @{
  bool operator[](Int index) const {
    checkIndex(index, count_);
    return bitAt(index);
  }
  Reference operator[](Int index) {
    checkIndex(index, count_);
    return {*this, index};
  }
  /// @}

  /// Adds a bit behind the last one. Constant on average.
  void append(bool bit) {
    lastWord_ |= detail::BitWord{bit} << (count_ % detail::bitsOfWord);
    cardinality_ += bit ? 1 : 0;
    if (++count_ % detail::bitsOfWord == 0) [[unlikely]]
      putLastWordAway();
  }

  /// Puts a bit before that at the index, or behind the last one if it is the count. Linear, by
  /// words, in the number of bits above.
  void insert(bool bit, Int atIndex);

  /// Takes the last bit away; absent if there is none.
  Optional<bool> removeLast();

  /// Takes the bit at the index away. Linear, by words, in the number of bits above.
  bool removeAtIndex(Int index);

  /// Takes all bits away; the memory is given back unless it is to be kept.
  void removeAll(bool keepCapacity = false);

  /// Makes room for `count` bits in all.
  void reserve(Int count);

  /// 0, the count, and the index behind an index.
  /// @{
  Int startIndex() const noexcept { return 0; }
  Int endIndex() const noexcept { return count_; }
  Int indexAfter(Int index) const noexcept { return index + 1; }
  /// @}

  /// The bits as a random-access range of bool, to be read. An iterator goes by its index:
  /// it stays valid as long as the array has that.
  /// @{
  Iterator begin() const noexcept;
  Iterator end() const noexcept;
  Iterator makeIterator() const noexcept;
  /// @}

  /// The bits in the containers of the standard library. A bitset of another size than the count is
  /// fatal.
  /// @{
  std::vector<bool> asVector() const;
  template <std::size_t size>
  std::bitset<size> asBitset(
      std::source_location location = std::source_location::current()) const {
    if (size != this->size()) failBitset(size, location);
    return detail::bitsetOf<size>(*this);
  }
  /// @}

  /// A hash of the bits. Linear.
  Int hashValue() const noexcept;

  /// The bits between brackets: "[true, false]".
  std::string description() const;

  /// Whether the bits are the same.
  friend bool operator==(const BitArray& a, const BitArray& b) noexcept {
    return a.count_ == b.count_ && a.cardinality_ == b.cardinality_ && a.lastWord_ == b.lastWord_ &&
           a.fullWords_ == b.fullWords_;
  }
  /// Lexicographic, with 0 before 1. Linear, by words, up to the first difference.
  friend TOLVANITE_EXPORT std::strong_ordering operator<=>(const BitArray& a,
                                                           const BitArray& b) noexcept;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const BitArray& array);

 private:
  friend Reference;

  // The argument is a range of bool; this array is empty.
  template <typename Range>
  void assign(Range&& bits) {
    if constexpr (std::ranges::sized_range<Range>) {
      reserve(static_cast<Int>(std::ranges::size(bits)));
    }
    for (const bool bit : bits) append(bit);
  }

  static void checkIndex(Int index, Int end) {
    if (index < 0 || index >= end) [[unlikely]]
      failIndex(index);
  }
  [[noreturn]] static void failIndex(Int index);
  [[noreturn]] void failBitset(std::size_t size, std::source_location location) const;

  const detail::BitWord& wordAt(std::size_t place) const {
    return place < fullWords_.size() ? fullWords_[place] : lastWord_;
  }
  detail::BitWord& wordAt(std::size_t place) {
    return place < fullWords_.size() ? fullWords_[place] : lastWord_;
  }
  bool bitAt(Int index) const {
    return (wordAt(detail::wordOf(index)) & detail::maskOf(index)) != 0;
  }
  void putBit(Int index, bool bit);
  void fill(Int count, bool bit, std::source_location location);
  void putLastWordAway();

  Int count_ = 0;
  // The bits behind those of the full words, fewer than 64. They stand apart because appending to a
  // place that never moves takes half the time; and between the two numbers because next to each
  // other the compiler would count both in one wide register, which costs that gain again.
  detail::BitWord lastWord_ = 0;
  Int cardinality_ = 0;
  std::vector<detail::BitWord> fullWords_;
};

/// Goes over the bits of a BitArray.
class BitArray::Iterator : public detail::ConstRandomAccessIterator<Iterator, bool, bool> {
 public:
  /// Of no array.
  Iterator() = default;
  /// At an index of the array, or at its end.
  Iterator(const BitArray* array, Int index) : array_(array), index_(index) {}

  bool operator*() const { return array_->bitAt(index_); }
  Iterator& operator+=(difference_type offset) {
    index_ += offset;
    return *this;
  }
  friend difference_type operator-(const Iterator& a, const Iterator& b) {
    return a.index_ - b.index_;
  }
  friend bool operator==(const Iterator& a, const Iterator& b) { return a.index_ == b.index_; }
  friend auto operator<=>(const Iterator& a, const Iterator& b) { return a.index_ <=> b.index_; }

 private:
  const BitArray* array_ = nullptr;
  Int index_ = 0;
};

inline BitArray::Iterator BitArray::begin() const noexcept { return {this, 0}; }
inline BitArray::Iterator BitArray::end() const noexcept { return {this, count_}; }
inline BitArray::Iterator BitArray::makeIterator() const noexcept { return begin(); }

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::BitArray> {
  std::size_t operator()(const tolvanite::BitArray& array) const noexcept {
    return static_cast<std::size_t>(array.hashValue());
  }
};
