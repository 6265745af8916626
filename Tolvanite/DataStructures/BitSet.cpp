#include <Tolvanite/DataStructures/BitSet.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <functional>
#include <ostream>

#include <fmt/format.h>

#include <Tolvanite/Frame/Optional.h>

namespace tolvanite {

using detail::bitsOfWord;
using detail::BitWord;

namespace {

// The first words at once, for which the compiler uses wide registers only if it knows their number
// and that the two lists cannot get in each other's way.
template <typename Operation>
void combine(std::vector<BitWord>& words, const std::vector<BitWord>& others, Operation operation) {
  constexpr std::size_t atOnce = 8;
  BitWord* word = words.data();
  const BitWord* other = others.data();
  std::size_t left = words.size();
  for (; left >= atOnce; left -= atOnce, word += atOnce, other += atOnce) {
    BitWord results[atOnce];
    for (std::size_t i = 0; i < atOnce; ++i) results[i] = operation(word[i], other[i]);
    for (std::size_t i = 0; i < atOnce; ++i) word[i] = results[i];
  }
  for (; left > 0; --left, ++word, ++other) *word = operation(*word, *other);
}

template <typename Text>
std::string joinedWords(const std::vector<BitWord>& words, char separator, Text textOf) {
  std::string result;
  for (const BitWord word : words) {
    if (!result.empty()) result += separator;
    result += textOf(word);
  }
  return result;
}

std::string hexText(BitWord word) { return fmt::format("{:#x}", word); }

Optional<BitWord> readBits(std::string_view text) {
  if (text.size() != static_cast<std::size_t>(bitsOfWord)) return {};
  BitWord result = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '0' && text[i] != '1') return {};
    result |= BitWord{text[i] == '1'} << i;
  }
  return result;
}

Optional<BitWord> readHex(std::string_view text) {
  if (!text.starts_with("0x") || text.size() > 18) return {};
  BitWord result = 0;
  const auto [end, error] = std::from_chars(text.data() + 2, text.data() + text.size(), result, 16);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return result;
}

// Fills the words from the pieces of the text up to the first that does not read.
template <typename Read>
bool readWords(std::string_view text, std::vector<BitWord>& words, Read read) {
  bool isWhole = false;
  for (BitWord& word : words) {
    if (isWhole) return false;
    const std::size_t end = std::min(text.find('/'), text.size());
    const Optional<BitWord> value = read(text.substr(0, end));
    if (!value.has_value()) return false;
    word = *value;
    isWhole = end == text.size();
    text.remove_prefix(isWhole ? end : end + 1);
  }
  return isWhole;
}

}  // namespace

std::string bitsToString(std::uint64_t number) {
  std::string result(64, '0');
  for (std::size_t i = 0; i < 64; ++i) {
    if ((number >> i & 1U) != 0) result[i] = '1';
  }
  return result;
}

BitSet::BitSet(Int size, std::source_location location) : size_(size) {
  if (size <= 0) {
    fatalFailure("The size of a BitSet must be positive: " + std::to_string(size), location);
  }
  words_.assign(detail::wordsFor(size), 0);
}

BitSet::BitSet(const BitArray& bits, std::source_location location)
    : BitSet(bits.count(), location) {
  words_ = bits.bits();
}

void BitSet::failSizes(Int other, std::source_location location) const {
  fatalFailure(
      "BitSets of different sizes: " + std::to_string(size_) + " and " + std::to_string(other),
      location);
}

void BitSet::dropBitsBeyondSize() {
  if (!words_.empty()) words_.back() &= detail::lastWordMask(size_);
}

void BitSet::setAll() {
  std::ranges::fill(words_, ~BitWord{0});
  dropBitsBeyondSize();
}

void BitSet::clearAll() { std::ranges::fill(words_, 0); }

bool BitSet::all0() const noexcept {
  return std::ranges::all_of(words_, [](BitWord word) { return word == 0; });
}

bool BitSet::all1() const noexcept {
  if (words_.empty()) return true;
  return words_.back() == detail::lastWordMask(size_) &&
         std::all_of(words_.begin(), words_.end() - 1,
                     [](BitWord word) { return word == ~BitWord{0}; });
}

Int BitSet::endOfRun(Int first, bool bit) const {
  const BitWord flip = bit ? ~BitWord{0} : 0;
  std::size_t place = detail::wordOf(first);
  BitWord others = (words_[place] ^ flip) & ~(detail::maskOf(first) - 1);
  while (others == 0 && ++place < words_.size()) others = words_[place] ^ flip;
  if (others == 0) return size_;
  return std::min(size_, static_cast<Int>(place) * bitsOfWord + std::countr_zero(others));
}

std::vector<BitSet::Run> BitSet::continuousRanges() const {
  std::vector<Run> result;
  for (Int first = 0; first < size_;) {
    const bool bit = bitAt(first);
    const Int end = endOfRun(first, bit);
    result.push_back({bit, first, end - 1});
    first = end;
  }
  return result;
}

BitSet& BitSet::operator&=(const BitSet& other) {
  if (size_ != other.size_) failSizes(other.size_, std::source_location::current());
  combine(words_, other.words_, std::bit_and<>());
  return *this;
}

BitSet& BitSet::operator|=(const BitSet& other) {
  if (size_ != other.size_) failSizes(other.size_, std::source_location::current());
  combine(words_, other.words_, std::bit_or<>());
  return *this;
}

BitSet& BitSet::operator^=(const BitSet& other) {
  if (size_ != other.size_) failSizes(other.size_, std::source_location::current());
  combine(words_, other.words_, std::bit_xor<>());
  return *this;
}

BitSet BitSet::operator~() const {
  BitSet result = *this;
  for (BitWord& word : result.words_) word = ~word;
  result.dropBitsBeyondSize();
  return result;
}

std::string BitSet::bitCode() const { return joinedWords(words_, '/', bitsToString); }

std::string BitSet::hexCode() const { return joinedWords(words_, '/', hexText); }

bool BitSet::setToBitCoded(std::string_view text) {
  const bool isWhole = readWords(text, words_, readBits);
  dropBitsBeyondSize();
  return isWhole;
}

bool BitSet::setToHexCoded(std::string_view text) {
  const bool isWhole = readWords(text, words_, readHex);
  dropBitsBeyondSize();
  return isWhole;
}

std::vector<bool> BitSet::asVector() const {
  std::vector<bool> result(static_cast<std::size_t>(size_));
  for (const Int index : indexesOfSetBits()) result[static_cast<std::size_t>(index)] = true;
  return result;
}

Int BitSet::hashValue() const noexcept {
  BitWord hash = 1234;
  for (std::size_t i = words_.size(); i-- > 0;) hash ^= (i + 1) * words_[i];
  return static_cast<Int>((hash >> 32U) ^ hash);
}

std::string BitSet::description() const { return joinedWords(words_, ' ', bitsToString); }

std::string BitSet::hexDescription() const {
  return fmt::format("BitSet({} bits: {})", size_, hexCode());
}

std::ostream& operator<<(std::ostream& out, const BitSet& set) { return out << set.description(); }

std::string BitSet::Run::description() const {
  return fmt::format("({}, {}...{})", bit, first, last);
}

std::ostream& operator<<(std::ostream& out, const BitSet::Run& run) {
  return out << run.description();
}

}  // namespace tolvanite
