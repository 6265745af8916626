// An iterator over a copy of a container, which it keeps: the content as it stood at the beginning,
// whatever becomes of the collection meanwhile.
#pragma once

#include <iterator>
#include <utility>

#include <Tolvanite/DataStructures/detail/IteratorParts.h>

namespace tolvanite::detail {

/// For containers that are cheap to copy. Compares by position.
template <typename Container>
class KeptIterator : public ConstIterator<KeptIterator<Container>, typename Container::value_type> {
  using Position = typename Container::Iterator;

 public:
  using ConstIterator<KeptIterator, typename Container::value_type>::operator++;

  KeptIterator() = default;
  explicit KeptIterator(Container container)
      : container_(std::move(container)), position_(container_.begin()), end_(container_.end()) {}

  const typename Container::value_type& operator*() const noexcept { return *position_; }
  KeptIterator& operator++() noexcept {
    ++position_;
    return *this;
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
