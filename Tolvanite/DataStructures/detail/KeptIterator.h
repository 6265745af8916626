// An iterator over a copy of a container, which it keeps: the content as it stood at the beginning,
// whatever becomes of the collection meanwhile.
#pragma once

#include <cstddef>
#include <iterator>
#include <utility>

namespace tolvanite::detail {

/// For containers that are cheap to copy. Compares by position.
template <typename Container>
class KeptIterator {
  using Position = typename Container::Iterator;

 public:
  using value_type = typename Container::value_type;
  using difference_type = std::ptrdiff_t;
  using reference = const value_type&;
  using pointer = const value_type*;
  using iterator_category = std::forward_iterator_tag;

  KeptIterator() = default;
  explicit KeptIterator(Container container)
      : container_(std::move(container)), position_(container_.begin()), end_(container_.end()) {}

  reference operator*() const noexcept { return *position_; }
  pointer operator->() const noexcept { return &*position_; }
  KeptIterator& operator++() noexcept {
    ++position_;
    return *this;
  }
  KeptIterator operator++(int) {
    KeptIterator before = *this;
    ++position_;
    return before;
  }
  friend bool operator==(const KeptIterator& a, const KeptIterator& b) noexcept {
    return a.position_ == b.position_;
  }
  friend bool operator==(const KeptIterator& i, std::default_sentinel_t /*end*/) noexcept {
    return i.position_ == i.end_;
  }

 private:
  Container container_;
  Position position_;
  Position end_;
};

}  // namespace tolvanite::detail
