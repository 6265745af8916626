// The iterator of the array-shaped collections: a counter that reads the collection as it is at
// each step, so that a change during an iteration is seen and never runs off the end.
#pragma once

#include <compare>
#include <cstddef>
#include <iterator>

#include <Tolvanite/DataStructures/detail/IteratorParts.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite::detail {

template <typename Collection, typename T>
class LiveIterator : public ConstRandomAccessIterator<LiveIterator<Collection, T>, T> {
 public:
  LiveIterator() = default;
  LiveIterator(const Collection& collection, Int index) noexcept
      : collection_(&collection), index_(index) {}

  /// The index that the iterator stands at.
  Int index() const noexcept { return index_; }

  const T& operator*() const { return (*collection_)[index_]; }
  LiveIterator& operator+=(std::ptrdiff_t n) noexcept {
    index_ += n;
    return *this;
  }
  friend std::ptrdiff_t operator-(LiveIterator a, LiveIterator b) noexcept {
    return a.index_ - b.index_;
  }
  friend bool operator==(LiveIterator a, LiveIterator b) noexcept { return a.index_ == b.index_; }
  friend auto operator<=>(LiveIterator a, LiveIterator b) noexcept { return a.index_ <=> b.index_; }

  // The end is where the collection ends at the moment of the question.
  friend bool operator==(LiveIterator i, std::default_sentinel_t /*end*/) noexcept {
    return i.index_ >= i.collection_->count();
  }
  friend std::ptrdiff_t operator-(std::default_sentinel_t /*end*/, LiveIterator i) noexcept {
    return i.collection_->count() - i.index_;
  }
  friend std::ptrdiff_t operator-(LiveIterator i, std::default_sentinel_t /*end*/) noexcept {
    return i.index_ - i.collection_->count();
  }

 private:
  const Collection* collection_ = nullptr;
  Int index_ = 0;
};

}  // namespace tolvanite::detail
