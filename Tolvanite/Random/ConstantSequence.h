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

/// A sequence without end. An algorithm that wants all of it never returns.
template <typename T>
class ConstantSequence {
 public:
  /// Gives the element for ever. Has a copy of it, and may outlive the sequence.
  class Iterator {
   public:
    /// The element; never absent.
    Optional<T> next() { return element_; }

   private:
    friend ConstantSequence;
    explicit Iterator(T element) : element_(std::move(element)) {}

    T element_;
  };

  /// The element to repeat.
  explicit ConstantSequence(T element) : element_(std::move(element)) {}

  /// The element that is repeated.
  const T& element() const { return element_; }

  /// An iterator that is pulled by `next()`.
  Iterator makeIterator() const { return Iterator(element_); }

  /// A further iterator as an input range for `for` and std::views; its end is never reached.
  /// @{
  auto begin() const { return detail::NextIterator(makeIterator()); }
  std::default_sentinel_t end() const { return {}; }
  /// @}

 private:
  T element_;
};

}  // namespace tolvanite
