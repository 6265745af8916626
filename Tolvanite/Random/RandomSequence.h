// Elements of an array drawn at random, without end.
//
//   const RandomSequence<std::string> names({"Anna", "Ben", "Carla"});
//   for (const auto& name : names | std::views::take(20)) addPlayer(name);
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <source_location>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Shuffling.h>
#include <Tolvanite/Random/detail/NextIterator.h>

namespace tolvanite {

/// An array to draw from. Copies share the array.
template <typename T>
class RandomSequence {
 public:
  /// Draws from the array, and keeps it.
  class Iterator {
   public:
    /// One of the elements, all equally likely, by one draw from the system's random source (see
    /// SystemRandom.h). Absent, without a draw, if there are none. More than 2^32 - 1 are fatal.
    Optional<T> next(std::source_location location = std::source_location::current()) {
      if (elements_->empty()) return std::nullopt;
      const Int index = detail::drawBelow(detail::countOf(*elements_), location);
      return (*elements_)[static_cast<std::size_t>(index)];
    }

   private:
    friend RandomSequence;
    explicit Iterator(std::shared_ptr<const std::vector<T>> elements)
        : elements_(std::move(elements)) {}

    std::shared_ptr<const std::vector<T>> elements_;
  };

  /// The elements to draw from; there may be none.
  explicit RandomSequence(std::vector<T> elements)
      : elements_(std::make_shared<const std::vector<T>>(std::move(elements))) {}

  /// The array that is drawn from. Good while a copy of the sequence exists.
  const std::vector<T>& elements() const { return *elements_; }

  /// An iterator that is pulled by `next()`.
  Iterator makeIterator() const { return Iterator(elements_); }

  /// Elements as an input range for `for` and std::views, one drawn when it is looked at. The end
  /// is reached at once if there are no elements, and else never.
  /// @{
  auto begin() const { return detail::NextIterator(makeIterator()); }
  std::default_sentinel_t end() const { return {}; }
  /// @}

 private:
  std::shared_ptr<const std::vector<T>> elements_;
};

}  // namespace tolvanite
