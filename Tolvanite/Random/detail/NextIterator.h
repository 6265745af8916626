// A range-based for and the algorithms of <ranges> over anything that has `next()`.
#pragma once

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

// An input iterator on what `Source::next()` gives, an optional, until that is absent. It asks for
// an element only when that is looked at, so that taking n elements makes n of them and no more.
template <typename Source>
class NextIterator {
  using Next = decltype(std::declval<Source&>().next());

 public:
  using value_type = typename Next::value_type;
  using difference_type = std::ptrdiff_t;
  using iterator_concept = std::input_iterator_tag;

  explicit NextIterator(Source source) : source_(std::move(source)) {}

  const value_type& operator*() const { return *fetched(); }
  const value_type* operator->() const { return &*fetched(); }
  NextIterator& operator++() {
    fetched();
    isFetched_ = false;
    return *this;
  }
  void operator++(int) { ++*this; }

  friend bool operator==(const NextIterator& iterator, std::default_sentinel_t) {
    return !iterator.fetched().has_value();
  }

 private:
  const Next& fetched() const {
    if (!isFetched_) {
      element_ = source_.next();
      isFetched_ = true;
    }
    return element_;
  }

  mutable Source source_;
  mutable Next element_;
  mutable bool isFetched_ = false;
};

}  // namespace tolvanite::detail
