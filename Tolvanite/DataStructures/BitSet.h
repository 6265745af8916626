// A set of the numbers from 0 to a fixed size, a bit for each: with the algebra of sets, and with
// codes to be stored as texts.
//
//   BitSet weekend(7);
//   weekend.set(5);
//   weekend.set(6);
//   const BitSet workdays = ~weekend;
//   for (const Int day : workdays.indexesOfSetBits()) plan(day);
//   weekend.hexCode()                                  "0x60"
//   weekend.continuousRanges()                         [(false, 0...4), (true, 5...6)]
#pragma once

#include <bitset>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <source_location>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/BitArray.h>
#include <Tolvanite/DataStructures/SetBitIndexes.h>
#include <Tolvanite/DataStructures/detail/BitWords.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The 64 bits of a number as "0" and "1", the lowest bit first.
TOLVANITE_EXPORT std::string bitsToString(std::uint64_t number);

/// A set of fixed size. An index that it does not have is fatal, and so are operators on sets of
/// different sizes: "BitSets of different sizes: 3 and 5".
class TOLVANITE_EXPORT BitSet {
 public:
  /// What a place of a set that can be written to gives: it reads and assigns as a bool does.
  using Reference = detail::BitReference<BitSet>;

  /// Neighbouring bits of one value, from `first` to `last`, both included.
  struct TOLVANITE_EXPORT Run {
    /// What all of them are.
    bool bit = false;
    /// The index of the lowest.
    Int first = 0;
    /// The index of the highest.
    Int last = 0;

    /// "(true, 1...2)".
    std::string description() const;
    friend bool operator==(const Run&, const Run&) = default;
    friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const Run& run);
  };

  /// So many bits, all 0. A size that is not positive is fatal.
  explicit BitSet(Int size, std::source_location location = std::source_location::current());

  /// The bits of a BitArray, of a range of bool such as a std::vector<bool>, or of a std::bitset,
  /// with their number as the size. None at all are fatal.
  /// @{
  explicit BitSet(const BitArray& bits,
                  std::source_location location = std::source_location::current());
  template <typename Range>
    requires(!std::derived_from<std::remove_cvref_t<Range>, BitArray> && detail::RangeOfBits<Range>)
  explicit BitSet(Range&& bits, std::source_location location = std::source_location::current())
      : BitSet(BitArray(bits), location) {}
  template <std::size_t size>
  explicit BitSet(const std::bitset<size>& bits,
                  std::source_location location = std::source_location::current())
      : BitSet(BitArray(bits), location) {}
  /// @}

  /// A set without any 1, of one word if not told otherwise.
  static BitSet allZeros(Int size = detail::bitsOfWord,
                         std::source_location location = std::source_location::current()) {
    return BitSet(size, location);
  }

  BitSet(const BitSet&) = default;
  BitSet& operator=(const BitSet&) = default;
  /// The other set has the size 0 afterwards.
  /// @{
  BitSet(BitSet&& other) noexcept
      : size_(std::exchange(other.size_, 0)), words_(std::exchange(other.words_, {})) {}
  BitSet& operator=(BitSet&& other) noexcept {
    BitSet moved(std::move(other));
    swap(moved);
    return *this;
  }
  /// @}
  ~BitSet() = default;

  /// Exchanges the contents of two sets, sizes included. Constant.
  /// @{
  void swap(BitSet& other) noexcept {
    std::swap(size_, other.size_);
    words_.swap(other.words_);
  }
  friend void swap(BitSet& a, BitSet& b) noexcept { a.swap(b); }
  /// @}

  /// The number of bits, 0 or 1.
  Int size() const noexcept { return size_; }
  /// The words that hold the bits: bit i in word i / 64 at 1 << (i % 64), 0 behind the last bit.
  const std::vector<std::uint64_t>& words() const noexcept { return words_; }

  /// The bit at an index.
  /// @{
  bool operator[](Int index) const { return isSet(index); }
  Reference operator[](Int index) {
    checkIndex(index);
    return {*this, index};
  }
  bool isSet(Int index) const {
    checkIndex(index);
    return bitAt(index);
  }
  /// @}

  /// Makes the bit at an index 1, or 0.
  /// @{
  void set(Int index) {
    checkIndex(index);
    words_[detail::wordOf(index)] |= detail::maskOf(index);
  }
  void clear(Int index) {
    checkIndex(index);
    words_[detail::wordOf(index)] &= ~detail::maskOf(index);
  }
  /// @}
  /// Makes the bit at an index the other one, and gives what it is now.
  bool flip(Int index) {
    checkIndex(index);
    words_[detail::wordOf(index)] ^= detail::maskOf(index);
    return bitAt(index);
  }

  /// Makes all bits 1, or 0.
  /// @{
  void setAll();
  void clearAll();
  /// @}

  /// The number of bits that are 1. Linear, by words.
  Int cardinality() const noexcept { return detail::countOfSetBits(words_); }
  /// Whether all bits are 1, any is, or none is. Linear, by words.
  /// @{
  bool all1() const noexcept;
  bool any1() const noexcept { return !all0(); }
  bool all0() const noexcept;
  /// @}

  /// The indexes of the bits that are 1, ascending.
  SetBitIndexes indexesOfSetBits() const& { return SetBitIndexes(words_); }
  SetBitIndexes indexesOfSetBits() && = delete;

  /// The runs of equal bits, in order: every index lies in exactly one.
  std::vector<Run> continuousRanges() const;

  /// What is in both sets, in any of the two, in one alone; of two sets of the same size. Each is
  /// linear, by words.
  /// @{
  BitSet& operator&=(const BitSet& other);
  BitSet& operator|=(const BitSet& other);
  BitSet& operator^=(const BitSet& other);
  friend BitSet operator&(BitSet a, const BitSet& b) { return std::move(a &= b); }
  friend BitSet operator|(BitSet a, const BitSet& b) { return std::move(a |= b); }
  friend BitSet operator^(BitSet a, const BitSet& b) { return std::move(a ^= b); }
  /// @}
  /// What is not in the set.
  BitSet operator~() const;

  /// The words as by `bitsToString`, joined by "/". The 64 digits of the last word go beyond the
  /// size; those are "0".
  std::string bitCode() const;
  /// The words as hexadecimal numbers in lower case, joined by "/", the one of the lowest indexes
  /// first: "0xffffffffffffffff/0x1" holds the bits 0 to 64.
  std::string hexCode() const;

  /// Reads what `bitCode` or `hexCode` of a set of this size gave. Words are taken one by one: what
  /// stands before the first that does not read is in the set afterwards, the rest is unchanged.
  /// Bits beyond the size are dropped. Answers whether the text was read whole and had a word for
  /// each of the set. A word is 64 times "0" or "1", or "0x" and 1 to 16 hexadecimal digits in any
  /// case.
  /// @{
  bool setToBitCoded(std::string_view text);
  bool setToHexCoded(std::string_view text);
  /// @}

  /// The bits in the containers of the standard library. A bitset of another size is fatal.
  /// @{
  std::vector<bool> asVector() const;
  template <std::size_t count>
  std::bitset<count> asBitset(
      std::source_location location = std::source_location::current()) const {
    if (static_cast<Int>(count) != size_) failSizes(static_cast<Int>(count), location);
    return detail::bitsetOf<count>(*this);
  }
  /// @}

  /// Of the words alone: from 1234 on, each word times its index + 1 is taken in by exclusive or,
  /// from the last to the first; the upper half of the result then goes into the lower one so, too.
  Int hashValue() const noexcept;

  /// The words as by `bitsToString`, with a blank between them.
  std::string description() const;
  /// "BitSet(7 bits: 0x60)".
  std::string hexDescription() const;

  /// Whether size and bits are the same.
  friend bool operator==(const BitSet&, const BitSet&) = default;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const BitSet& set);

 private:
  friend Reference;

  void checkIndex(Int index) const {
    if (index < 0 || index >= size_) [[unlikely]]
      fatalIndexOutOfRange(index, size_);
  }
  [[noreturn]] void failSizes(Int other, std::source_location location) const;
  void dropBitsBeyondSize();
  Int endOfRun(Int first, bool bit) const;

  bool bitAt(Int index) const {
    return (words_[detail::wordOf(index)] & detail::maskOf(index)) != 0;
  }
  void putBit(Int index, bool bit) { bit ? set(index) : clear(index); }

  Int size_;
  std::vector<detail::BitWord> words_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::BitSet> {
  std::size_t operator()(const tolvanite::BitSet& set) const noexcept {
    return static_cast<std::size_t>(set.hashValue());
  }
};
