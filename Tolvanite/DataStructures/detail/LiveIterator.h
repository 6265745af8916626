// The iterator of the array-shaped collections: a counter that reads the collection as it is at
// each step, so that a change during an iteration is seen and never runs off the end.
#pragma once

#include <compare>
#include <cstddef>
#include <iterator>

#include <Tolvanite/Frame/Types.h>

namespace tolvanite::detail {

template <typename Collection>
class LiveIterator {
 public:
  using value_type = typename Collection::value_type;
  using difference_type = std::ptrdiff_t;
  using reference = const value_type&;
  using pointer = const value_type*;
  using iterator_category = std::random_access_iterator_tag;

  LiveIterator() = default;
  LiveIterator(const Collection& collection, Int index) noexcept
      : collection_(&collection), index_(index) {}

  /// The index that the iterator stands at.
  Int index() const noexcept { return index_; }

  reference operator*() const { return (*collection_)[index_]; }
  pointer operator->() const { return &**this; }
  reference operator[](difference_type n) const { return (*collection_)[index_ + n]; }
  LiveIterator& operator++() noexcept { return *this += 1; }
  LiveIterator& operator--() noexcept { return *this -= 1; }
  LiveIterator operator++(int) noexcept { return {*collection_, index_++}; }
  LiveIterator operator--(int) noexcept { return {*collection_, index_--}; }
  LiveIterator& operator+=(difference_type n) noexcept {
    index_ += n;
    return *this;
  }
  LiveIterator& operator-=(difference_type n) noexcept {
    index_ -= n;
    return *this;
  }
  friend LiveIterator operator+(LiveIterator i, difference_type n) noexcept { return i += n; }
  friend LiveIterator operator+(difference_type n, LiveIterator i) noexcept { return i += n; }
  friend LiveIterator operator-(LiveIterator i, difference_type n) noexcept { return i -= n; }
  friend difference_type operator-(LiveIterator a, LiveIterator b) noexcept {
    return a.index_ - b.index_;
  }
  friend bool operator==(LiveIterator a, LiveIterator b) noexcept { return a.index_ == b.index_; }
  friend auto operator<=>(LiveIterator a, LiveIterator b) noexcept { return a.index_ <=> b.index_; }

  // The end is where the collection ends at the moment of the question.
  friend bool operator==(LiveIterator i, std::default_sentinel_t /*end*/) noexcept {
    return i.index_ >= i.collection_->count();
  }
  friend difference_type operator-(std::default_sentinel_t /*end*/, LiveIterator i) noexcept {
    return i.collection_->count() - i.index_;
  }
  friend difference_type operator-(LiveIterator i, std::default_sentinel_t /*end*/) noexcept {
    return i.index_ - i.collection_->count();
  }

 private:
  const Collection* collection_ = nullptr;
  Int index_ = 0;
};

}  // namespace tolvanite::detail
