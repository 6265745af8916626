// A reference count for content that copies share, also across threads. While the process has a
// single thread it costs plain additions; from the first further thread on it is atomic.
#pragma once

#include <atomic>
#include <cstdint>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

namespace tolvanite {

/// Whether no second thread can touch shared content at the moment.
inline bool isProcessSingleThreaded() noexcept {
#if __has_include(<sys/single_threaded.h>)
  return __libc_single_threaded != 0;
#else
  return false;
#endif
}

/// Counts the owners of something that is destroyed by whoever drops the last reference.
class SharedCount {
 public:
  /// So many owners to begin with.
  explicit SharedCount(std::uint32_t count) noexcept : count_(count) {}

  /// Takes a further reference, or several at once.
  void add(std::uint32_t count = 1) noexcept {
    if (isProcessSingleThreaded()) {
      count_.store(count_.load(std::memory_order_relaxed) + count, std::memory_order_relaxed);
    } else {
      count_.fetch_add(count, std::memory_order_relaxed);
    }
  }

  /// Gives a reference back, or several at once; true when they were the last ones.
  [[nodiscard]] bool drop(std::uint32_t count = 1) noexcept {
    // The only owner left needs no read-modify-write: nobody else can add a reference any more.
    if (count_.load(std::memory_order_acquire) == count) return true;
    if (isProcessSingleThreaded()) {
      count_.store(count_.load(std::memory_order_relaxed) - count, std::memory_order_relaxed);
      return false;
    }
    return count_.fetch_sub(count, std::memory_order_acq_rel) == count;
  }

  /// The number of owners at this moment.
  std::uint32_t value() const noexcept { return count_.load(std::memory_order_acquire); }

 private:
  std::atomic<std::uint32_t> count_;
};

}  // namespace tolvanite
