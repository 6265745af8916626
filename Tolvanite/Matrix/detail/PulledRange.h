// What every walk has beside its `next()`: the form of a range, for loops and algorithms.
//
//   auto walk = size.coordinateIterator();
//   const auto first = walk.next();           // pulled
//   for (const auto rest : walk) show(rest);  // the rest of the same walk
#pragma once

#include <cstddef>
#include <iterator>

#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

/// Base of a `Walk` with `Optional<Value> next()`. The range is of a single pass: its iterators
/// pull from the walk itself, which must outlive them, and what was pulled does not come again.
template <typename Walk, typename Value>
class PulledRange {
 public:
  class Iterator {
   public:
    using iterator_concept = std::input_iterator_tag;
    using value_type = Value;
    using difference_type = std::ptrdiff_t;

    constexpr explicit Iterator(Walk& walk) : walk_(&walk), current_(walk.next()) {}
    constexpr const Value& operator*() const { return *current_; }
    constexpr const Value* operator->() const { return &*current_; }
    constexpr Iterator& operator++() {
      current_ = walk_->next();
      return *this;
    }
    constexpr void operator++(int) { ++*this; }
    friend constexpr bool operator==(const Iterator& iterator, std::default_sentinel_t) {
      return !iterator.current_.has_value();
    }

   private:
    Walk* walk_;
    Optional<Value> current_;
  };

  /// Pulls the first value.
  constexpr Iterator begin() { return Iterator(static_cast<Walk&>(*this)); }
  constexpr std::default_sentinel_t end() const noexcept { return {}; }
};

}  // namespace tolvanite::detail
