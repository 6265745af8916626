#include <Tolvanite/DataStructures/detail/HandleBuffer.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace tolvanite::detail {

namespace {

// Below this count the front is never given slack: shifting so little costs nothing.
constexpr Int smallCount = 64;

void shift(HandleBuffer::Handle* to, const HandleBuffer::Handle* from, Int count) noexcept {
  if (count > 0) std::memmove(to, from, static_cast<std::size_t>(count) * sizeof *to);
}

std::size_t bytes(Int count) noexcept {
  return static_cast<std::size_t>(count) * sizeof(HandleBuffer::Handle);
}

}  // namespace

std::uint32_t nextViewer() noexcept {
  static std::atomic<std::uint32_t> last = 0;
  // Zero stands for none, also after the numbers have run round.
  std::uint32_t number = 0;
  while (number == 0) number = ++last;
  return number;
}

std::uint64_t nextTableMultiplier() noexcept {
  // The steps of splitmix64.
  static std::atomic<std::uint64_t> state = 0;
  std::uint64_t number = state += 0x9E3779B97F4A7C15u;
  number = (number ^ number >> 30) * 0xBF58476D1CE4E5B9u;
  number = (number ^ number >> 27) * 0x94D049BB133111EBu;
  return (number ^ number >> 31) | 1;
}

HandleBuffer::HandleBuffer(const HandleBuffer& other) {
  reserve(other.count_);
  shift(first_, other.first_, other.count_);
  count_ = other.count_;
}

HandleBuffer::~HandleBuffer() { std::free(block_); }

void HandleBuffer::reserve(Int count) {
  const Int room = end_ - first_;
  if (count > room) reallocate(first_ - block_, count - count_);
}

void HandleBuffer::reallocate(Int slackBefore, Int slackBehind) {
  const Int capacity = slackBefore + count_ + slackBehind;
  const Int before = first_ - block_;
  Handle* block = nullptr;
  if (before == slackBefore) {
    // The large allocator grows a block without copying it.
    block = static_cast<Handle*>(std::realloc(block_, bytes(capacity)));
    if (!block) throw std::bad_alloc();
  } else {
    block = static_cast<Handle*>(std::malloc(bytes(capacity)));
    if (!block) throw std::bad_alloc();
    shift(block + slackBefore, first_, count_);
    std::free(block_);
  }
  block_ = block;
  first_ = block + slackBefore;
  end_ = block + capacity;
}

void HandleBuffer::growBehind(Int width) {
  const Int before = first_ - block_;
  if (before > count_ + width) {
    // A queue that gains behind and loses before runs along its block: move it back.
    shift(block_, first_, count_);
    first_ = block_;
    return;
  }
  reallocate(before, width + std::max<Int>(count_ / 2, 8));
}

void HandleBuffer::growBefore(Int width) {
  reallocate(width + std::max<Int>(count_ / 4, 8), end_ - first_ - count_);
}

void HandleBuffer::openGap(Int index, Int width) {
  if (index < count_ - index && count_ > smallCount) {
    if (first_ - block_ < width) growBefore(width);
    shift(first_ - width, first_, index);
    first_ -= width;
  } else {
    if (end_ - first_ - count_ < width) growBehind(width);
    shift(first_ + index + width, first_ + index, count_ - index);
  }
  count_ += width;
}

void HandleBuffer::closeGap(Int index, Int width) noexcept {
  const Int behind = count_ - index - width;
  if (index < behind) {
    shift(first_ + width, first_, index);
    first_ += width;
  } else {
    shift(first_ + index, first_ + index + width, behind);
  }
  count_ -= width;
}

void HandleBuffer::closeGaps(std::span<const Int> ascendingIndexes) noexcept {
  const auto gaps = static_cast<Int>(ascendingIndexes.size());
  if (gaps == 0) return;
  if (gaps == 1) return closeGap(ascendingIndexes[0], 1);
  for (Int gap = 0; gap < gaps; ++gap) {
    const Int from = ascendingIndexes[static_cast<std::size_t>(gap)] + 1;
    const Int to = gap + 1 < gaps ? ascendingIndexes[static_cast<std::size_t>(gap) + 1] : count_;
    shift(first_ + from - gap - 1, first_ + from, to - from);
  }
  count_ -= gaps;
}

void HandleBuffer::openGaps(std::span<const Int> ascendingIndexes) {
  const auto gaps = static_cast<Int>(ascendingIndexes.size());
  if (gaps == 0) return;
  if (gaps == 1) return openGap(ascendingIndexes[0], 1);
  if (end_ - first_ - count_ < gaps) growBehind(gaps);
  Int end = count_;
  for (Int gap = gaps; gap > 0; --gap) {
    const Int index = ascendingIndexes[static_cast<std::size_t>(gap) - 1];
    shift(first_ + index + gap, first_ + index, end - index);
    end = index;
  }
  count_ += gaps;
}

void HandleBuffer::move(Int from, Int to) noexcept {
  const Handle moved = first_[from];
  if (from < to) {
    shift(first_ + from, first_ + from + 1, to - from);
  } else {
    shift(first_ + to + 1, first_ + to, from - to);
  }
  first_[to] = moved;
}

Int HandleBuffer::findNear(Handle handle, Int guess, Int reach) const noexcept {
  if (count_ == 0) return -1;
  guess = std::clamp<Int>(guess, 0, count_ - 1);
  const Int low = std::max<Int>(0, guess - reach);
  const Int high = std::min<Int>(count_, guess + 1 + reach);
  Int below = guess;
  Int above = guess;
  // Whole steps of eight in both directions, as long as both have them; then the rests.
  constexpr Int step = 8;
  while (below - low >= step && high - above >= step) {
    bool found = false;
    for (Int i = 0; i < step; ++i) {
      found |= first_[above + i] == handle;
      found |= first_[below - step + i] == handle;
    }
    if (found) break;
    above += step;
    below -= step;
  }
  while (above < high || below > low) {
    if (above < high && first_[above] == handle) return above;
    if (below > low && first_[below - 1] == handle) return below - 1;
    if (above < high) ++above;
    if (below > low) --below;
  }
  return -1;
}

}  // namespace tolvanite::detail
