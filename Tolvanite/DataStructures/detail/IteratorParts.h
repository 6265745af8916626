// The parts of iterators over constant elements that follow from a few steps of each. `Reference`
// is what their `operator*` gives: T itself where there are no elements to point at.
#pragma once

#include <cstddef>
#include <iterator>
#include <type_traits>

namespace tolvanite::detail {

/// The types that tell what an iterator is. One that gives its elements by value is of the category
/// `Concept` in the terms of ranges only.
template <typename T, typename Reference, typename Concept>
struct IteratorTypes {
  static constexpr bool pointsAtElements = std::is_reference_v<Reference>;

  using value_type = T;
  using difference_type = std::ptrdiff_t;
  using reference = Reference;
  using pointer = std::conditional_t<pointsAtElements, const T*, void>;
  using iterator_concept = Concept;
  using iterator_category = std::conditional_t<pointsAtElements, Concept, std::input_iterator_tag>;
};

/// The root of an `Iterator` over elements of T that has `operator*`, the prefix `operator++` and
/// `==`; it is to write `using ConstIterator<...>::operator++`.
template <typename Iterator, typename T, typename Reference = const T&>
class ConstIterator : public IteratorTypes<T, Reference, std::forward_iterator_tag> {
 public:
  const T* operator->() const
    requires std::is_reference_v<Reference>
  {
    return &*static_cast<const Iterator&>(*this);
  }
  Iterator operator++(int) {
    auto& self = static_cast<Iterator&>(*this);
    Iterator before = self;
    ++self;
    return before;
  }
};

/// The root of a random-access `Iterator` over elements of T that has `operator*`, `+=`, the
/// difference of two, and `<=>`.
template <typename Iterator, typename T, typename Reference = const T&>
class ConstRandomAccessIterator
    : public IteratorTypes<T, Reference, std::random_access_iterator_tag> {
 public:
  using difference_type = std::ptrdiff_t;

  const T* operator->() const
    requires std::is_reference_v<Reference>
  {
    return &*self();
  }
  Reference operator[](difference_type n) const { return *(self() + n); }
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
