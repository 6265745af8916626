#include <Tolvanite/DataStructures/BitArray.h>

#include <algorithm>
#include <ostream>

namespace tolvanite {

using detail::BitWord;
using detail::maskOf;
using detail::wordOf;

void BitArray::failIndex(Int index) {
  fatalFailure("Index out of range (" + std::to_string(index) + ")");
}

void BitArray::failBitset(std::size_t size, std::source_location location) const {
  fatalFailure("A bitset of " + std::to_string(size) + " bits cannot hold the " +
                   std::to_string(count_) + " of a BitArray",
               location);
}

void BitArray::fill(Int count, bool bit, std::source_location location) {
  if (count < 0) fatalFailure("Can't construct BitArray with count < 0", location);
  const BitWord word = bit ? ~BitWord{0} : 0;
  fullWords_.assign(wordOf(count), word);
  lastWord_ = word & (maskOf(count) - 1);
  count_ = count;
  cardinality_ = bit ? count : 0;
}

void BitArray::putLastWordAway() {
  fullWords_.push_back(lastWord_);
  lastWord_ = 0;
}

std::vector<std::uint64_t> BitArray::bits() const {
  std::vector<std::uint64_t> result;
  result.reserve(detail::wordsFor(count_));
  result = fullWords_;
  if (count_ % detail::bitsOfWord != 0) result.push_back(lastWord_);
  return result;
}

std::vector<bool> BitArray::asVector() const { return {begin(), end()}; }

void BitArray::putBit(Int index, bool bit) {
  BitWord& word = wordAt(wordOf(index));
  const BitWord before = word;
  word = bit ? word | maskOf(index) : word & ~maskOf(index);
  if (word != before) cardinality_ += bit ? 1 : -1;
}

void BitArray::insert(bool bit, Int atIndex) {
  checkIndex(atIndex, count_ + 1);
  // The bits of the first word below the index stay where they are.
  const std::size_t place = wordOf(atIndex);
  const BitWord below = wordAt(place) & (maskOf(atIndex) - 1);
  wordAt(place) ^= below;
  BitWord carried = BitWord{bit} << (atIndex % detail::bitsOfWord);
  for (std::size_t i = place; i <= fullWords_.size(); ++i) {
    BitWord& word = wordAt(i);
    const BitWord highest = word >> 63U;
    word = word << 1U | carried;
    carried = highest;
  }
  wordAt(place) |= below;
  cardinality_ += bit ? 1 : 0;
  if (++count_ % detail::bitsOfWord == 0) putLastWordAway();
}

Optional<bool> BitArray::removeLast() {
  if (isEmpty()) return {};
  return removeAtIndex(count_ - 1);
}

bool BitArray::removeAtIndex(Int index) {
  checkIndex(index, count_);
  if (count_ % detail::bitsOfWord == 0) {
    lastWord_ = fullWords_.back();
    fullWords_.pop_back();
  }
  const bool bit = bitAt(index);
  putBit(index, false);
  const std::size_t place = wordOf(index);
  BitWord carried = 0;
  for (std::size_t i = fullWords_.size(); i > place; --i) {
    BitWord& word = wordAt(i);
    const BitWord lowest = word << 63U;
    word = word >> 1U | carried;
    carried = lowest;
  }
  BitWord& word = wordAt(place);
  const BitWord below = word & (maskOf(index) - 1);
  word = below | (word ^ below) >> 1U | carried;
  --count_;
  return bit;
}

void BitArray::removeAll(bool keepCapacity) {
  count_ = 0;
  cardinality_ = 0;
  lastWord_ = 0;
  fullWords_.clear();
  if (!keepCapacity) fullWords_.shrink_to_fit();
}

void BitArray::reserve(Int count) {
  if (count > 0) fullWords_.reserve(wordOf(count));
}

Int BitArray::hashValue() const noexcept {
  auto hash = static_cast<BitWord>(count_);
  const auto take = [&hash](BitWord word) {
    hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32U;
  };
  for (const BitWord word : fullWords_) take(word);
  take(lastWord_);
  return static_cast<Int>(hash);
}

std::string BitArray::description() const {
  std::string result = "[";
  for (const bool bit : *this) {
    if (result.size() > 1) result += ", ";
    result += bit ? "true" : "false";
  }
  return result + "]";
}

std::strong_ordering operator<=>(const BitArray& a, const BitArray& b) noexcept {
  // Behind its end the shorter one has zeros, so that a difference there is in favour of the
  // longer.
  const std::size_t words = detail::wordsFor(std::min(a.count_, b.count_));
  for (std::size_t place = 0; place < words; ++place) {
    const BitWord differences = a.wordAt(place) ^ b.wordAt(place);
    if (differences == 0) continue;
    const BitWord lowest = differences & ~(differences - 1);
    return (a.wordAt(place) & lowest) <=> (b.wordAt(place) & lowest);
  }
  return a.count_ <=> b.count_;
}

std::ostream& operator<<(std::ostream& out, const BitArray& array) {
  return out << array.description();
}

}  // namespace tolvanite
