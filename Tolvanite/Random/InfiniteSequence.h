// The elements of an array, over and over.
//
//   const InfiniteSequence<std::string> colours({"red", "green", "blue"}, 1);
//   auto next = colours.makeIterator();
//   next.next();                                                 // "green", then "blue", "red" ...
//   for (const auto& colour : colours | std::views::take(100)) paint(colour);
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <source_location>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Random/detail/NextIterator.h>

namespace tolvanite {

template <typename T>
class InfiniteSequence;

/// Walks through an array, and from its end to its start again. Copies share the array.
template <typename T>
class InfiniteIterator {
 public:
  /// Starts with the element at `startIndex`, which is fatal if there is none.
  explicit InfiniteIterator(std::vector<T> elements, Int startIndex = 0,
                            std::source_location location = std::source_location::current())
      : InfiniteIterator(std::make_shared<const std::vector<T>>(std::move(elements)), startIndex,
                         location) {}

  /// The next element; never absent.
  Optional<T> next() {
    const auto here = static_cast<std::size_t>(index_);
    index_ = here + 1 == elements_->size() ? 0 : index_ + 1;
    return (*elements_)[here];
  }

 private:
  friend InfiniteSequence<T>;
  explicit InfiniteIterator(std::shared_ptr<const std::vector<T>> elements, Int startIndex = 0,
                            std::source_location location = std::source_location::current())
      : elements_(std::move(elements)), index_(startIndex) {
    detail::requireIndex(index_, detail::countOf(*elements_), location);
  }

  std::shared_ptr<const std::vector<T>> elements_;
  Int index_;
};

/// An array to walk through without end. Copies share the array.
template <typename T>
class InfiniteSequence {
 public:
  /// The elements, and the index of the one to start with, which is looked at only by
  /// `makeIterator`.
  explicit InfiniteSequence(std::vector<T> elements, Int startIndex = 0)
      : elements_(std::make_shared<const std::vector<T>>(std::move(elements))),
        startIndex_(startIndex) {}

  /// The array that is walked through. Good while a copy of the sequence exists.
  const std::vector<T>& elements() const { return *elements_; }
  /// The index of the element to start with, which may be outside of the array.
  Int startIndex() const { return startIndex_; }

  /// An iterator at the start. Fatal if no element has that index; so no empty array has one.
  InfiniteIterator<T> makeIterator(
      std::source_location location = std::source_location::current()) const {
    return InfiniteIterator<T>(elements_, startIndex_, location);
  }

  /// The elements from the start on as an input range for `for` and std::views; its end is never
  /// reached. `begin` is fatal if no element has the start index.
  /// @{
  auto begin() const { return detail::NextIterator(makeIterator()); }
  std::default_sentinel_t end() const { return {}; }
  /// @}

 private:
  std::shared_ptr<const std::vector<T>> elements_;
  Int startIndex_;
};

}  // namespace tolvanite
