// The indexes of the bits that are 1, in ascending order: what a BitSet gives to walk over its set
// bits. Zeros cost next to nothing, for they are skipped by words.
//
//   for (const Int index : bits.indexesOfSetBits()) select(index);
#pragma once

#include <bit>
#include <ranges>
#include <span>

#include <Tolvanite/DataStructures/detail/BitWords.h>
#include <Tolvanite/DataStructures/detail/IteratorParts.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A range of Int over the words of a container, which must outlive it. A bit that is changed while
/// an iterator stands on its word may or may not be seen; growing the container ends all iterators.
class SetBitIndexes : public std::ranges::view_interface<SetBitIndexes> {
 public:
  /// Goes from set bit to set bit.
  class Iterator : public detail::ConstIterator<Iterator, Int, Int> {
   public:
    using detail::ConstIterator<Iterator, Int, Int>::operator++;

    /// Of no container.
    Iterator() = default;
    /// At the first set bit from a word on, up to the end of the words.
    Iterator(const detail::BitWord* word, const detail::BitWord* end) : word_(word), end_(end) {
      if (word_ == end_) return;
      rest_ = *word_;
      skipZeros();
    }

    Int operator*() const { return base_ + std::countr_zero(rest_); }
    Iterator& operator++() {
      rest_ &= rest_ - 1;
      skipZeros();
      return *this;
    }
    friend bool operator==(const Iterator& a, const Iterator& b) {
      return a.rest_ == b.rest_ && a.word_ == b.word_;
    }

   private:
    void skipZeros() {
      while (rest_ == 0) {
        if (++word_ == end_) return;
        base_ += detail::bitsOfWord;
        rest_ = *word_;
      }
    }

    const detail::BitWord* word_ = nullptr;
    const detail::BitWord* end_ = nullptr;
    detail::BitWord rest_ = 0;  // the bits of *word_ from this one on; 0 at the end only
    Int base_ = 0;              // the index of the lowest bit of *word_
  };

  /// Of the words of a container.
  explicit SetBitIndexes(std::span<const detail::BitWord> words) : words_(words) {}

  /// From the lowest set bit on, to behind the highest.
  /// @{
  Iterator begin() const { return {words_.data(), words_.data() + words_.size()}; }
  Iterator end() const {
    const auto* const last = words_.data() + words_.size();
    return {last, last};
  }
  /// @}

 private:
  std::span<const detail::BitWord> words_;
};

}  // namespace tolvanite

/// @cond
template <>
inline constexpr bool std::ranges::enable_borrowed_range<tolvanite::SetBitIndexes> = true;
/// @endcond
