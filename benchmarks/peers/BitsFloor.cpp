#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "../BitsDriver.h"

// Plain words in a vector.
namespace bench {
namespace {

class Words {
 public:
  explicit Words(const std::vector<bool>& bits) : words_((bits.size() + 63) / 64) {
    for (std::size_t i = 0; i < bits.size(); ++i) {
      words_[i / 64] |= std::uint64_t{bits[i]} << (i % 64);
    }
  }
  void operator&=(const Words& other) {
    for (std::size_t i = 0; i < words_.size(); ++i) words_[i] &= other.words_[i];
  }
  void operator|=(const Words& other) {
    for (std::size_t i = 0; i < words_.size(); ++i) words_[i] |= other.words_[i];
  }
  void operator^=(const Words& other) {
    for (std::size_t i = 0; i < words_.size(); ++i) words_[i] ^= other.words_[i];
  }
  std::uint64_t count() const {
    std::uint64_t result = 0;
    for (const std::uint64_t word : words_)
      result += static_cast<std::uint64_t>(std::popcount(word));
    return result;
  }
  std::uint64_t sumOfIndexes() const {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < words_.size(); ++i) {
      for (std::uint64_t word = words_[i]; word != 0; word &= word - 1) {
        sum += i * 64 + static_cast<std::uint64_t>(std::countr_zero(word));
      }
    }
    return sum;
  }

 private:
  std::vector<std::uint64_t> words_;
};

class GrowingWords {
 public:
  void append(bool bit) {
    word_ |= std::uint64_t{bit} << (size_ % 64);
    if (++size_ % 64 != 0) return;
    words_.push_back(word_);
    word_ = 0;
  }
  std::uint64_t count() const {
    auto result = static_cast<std::uint64_t>(std::popcount(word_));
    for (const std::uint64_t word : words_)
      result += static_cast<std::uint64_t>(std::popcount(word));
    return result;
  }

 private:
  std::vector<std::uint64_t> words_;
  std::uint64_t word_ = 0;
  std::size_t size_ = 0;
};

const bool registered =
    registerSets<Words>("floor_words") && registerArrays<GrowingWords>("floor_words");

}  // namespace
}  // namespace bench
