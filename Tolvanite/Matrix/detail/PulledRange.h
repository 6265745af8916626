// The two forms of every walk: `next()`, and a range for loops and algorithms.
//
//   auto walk = size.coordinateIterator();
//   const auto first = walk.next();           // pulled
//   for (const auto rest : walk) show(rest);  // the rest of the same walk
#pragma once

#include <cstddef>
#include <iterator>
#include <utility>

#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

/// Base of a `Walk` with `bool pull(Value& value)`, which sets the value to the next one, or
/// answers false behind the last. The range is of a single pass: its iterators pull from the walk
/// itself, which must outlive them, and what was pulled does not come again.
template <typename Walk, typename Value>
class PulledRange {
 public:
  // A value and a mark beside it: compilers keep these in registers, and an optional in memory.
  class Iterator {
   public:
    using iterator_concept = std::input_iterator_tag;
    using value_type = Value;
    using difference_type = std::ptrdiff_t;

    constexpr explicit Iterator(Walk& walk) : walk_(&walk), isAtEnd_(!walk.pull(current_)) {}
    constexpr const Value& operator*() const { return current_; }
    constexpr const Value* operator->() const { return &current_; }
    constexpr Iterator& operator++() {
      isAtEnd_ = !walk_->pull(current_);
      return *this;
    }
    constexpr void operator++(int) { ++*this; }
    friend constexpr bool operator==(const Iterator& iterator, std::default_sentinel_t) {
      return iterator.isAtEnd_;
    }

   private:
    Walk* walk_;
    Value current_{};
    bool isAtEnd_;
  };

  /// The next value; absent behind the last.
  constexpr Optional<Value> next() {
    Value value{};
    if (!static_cast<Walk&>(*this).pull(value)) return {};
    return Optional<Value>(std::in_place, std::move(value));
  }

  /// Pulls the first value.
  constexpr Iterator begin() { return Iterator(static_cast<Walk&>(*this)); }
  constexpr std::default_sentinel_t end() const noexcept { return {}; }
};

}  // namespace tolvanite::detail
