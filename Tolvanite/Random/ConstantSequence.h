// One element over and over, for code that takes a sequence.
//
//   const ConstantSequence<int> ones(1);
//   for (const int one : ones | std::views::take(3)) add(one);
#pragma once

#include <iterator>
#include <utility>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Random/detail/NextIterator.h>

namespace tolvanite {

template <typename T>
class ConstantSequence {
 public:
  class Iterator {
   public:
    /// The element; never absent.
    Optional<T> next() { return element_; }

   private:
    friend ConstantSequence;
    explicit Iterator(T element) : element_(std::move(element)) {}

    T element_;
  };

  explicit ConstantSequence(T element) : element_(std::move(element)) {}

  const T& element() const { return element_; }

  Iterator makeIterator() const { return Iterator(element_); }

  auto begin() const { return detail::NextIterator(makeIterator()); }
  std::default_sentinel_t end() const { return {}; }

 private:
  T element_;
};

}  // namespace tolvanite
