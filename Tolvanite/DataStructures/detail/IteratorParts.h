// The parts of iterators over constant elements that follow from a few steps of each.
#pragma once

#include <cstddef>
#include <iterator>

namespace tolvanite::detail {

/// The root of an `Iterator` over elements of T that has `operator*`, the prefix `operator++` and
/// `==`; it is to write `using ConstIterator<...>::operator++`.
template <typename Iterator, typename T>
class ConstIterator {
 public:
  using value_type = T;
  using difference_type = std::ptrdiff_t;
  using reference = const T&;
  using pointer = const T*;
  using iterator_category = std::forward_iterator_tag;

  pointer operator->() const { return &*static_cast<const Iterator&>(*this); }
  Iterator operator++(int) {
    auto& self = static_cast<Iterator&>(*this);
    Iterator before = self;
    ++self;
    return before;
  }
};

/// The root of a random-access `Iterator` over elements of T that has `operator*`, `+=`, the
/// difference of two, and `<=>`.
template <typename Iterator, typename T>
class ConstRandomAccessIterator {
 public:
  using value_type = T;
  using difference_type = std::ptrdiff_t;
  using reference = const T&;
  using pointer = const T*;
  using iterator_category = std::random_access_iterator_tag;

  pointer operator->() const { return &*self(); }
  reference operator[](difference_type n) const { return *(self() + n); }
  Iterator& operator++() noexcept { return self() += 1; }
  Iterator& operator--() noexcept { return self() += -1; }
  Iterator operator++(int) noexcept {
    Iterator before = self();
    self() += 1;
    return before;
  }
  Iterator operator--(int) noexcept {
    Iterator before = self();
    self() += -1;
    return before;
  }
  Iterator& operator-=(difference_type n) noexcept { return self() += -n; }
  friend Iterator operator+(Iterator i, difference_type n) noexcept { return i += n; }
  friend Iterator operator+(difference_type n, Iterator i) noexcept { return i += n; }
  friend Iterator operator-(Iterator i, difference_type n) noexcept { return i += -n; }

 private:
  Iterator& self() noexcept { return static_cast<Iterator&>(*this); }
  const Iterator& self() const noexcept { return static_cast<const Iterator&>(*this); }
};

}  // namespace tolvanite::detail
