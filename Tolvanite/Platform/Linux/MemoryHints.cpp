#include <Tolvanite/Platform/MemoryHints.h>

#include <cstdint>

#include <sys/mman.h>

namespace tolvanite {

namespace {

void advise(void* memory, std::size_t size, int advice) noexcept {
  constexpr std::size_t page = 4096;
  constexpr std::size_t smallest = 4 << 20;
  if (size < smallest) return;
  // The whole pages within; what lies around them may belong to others.
  const std::size_t skipped = -reinterpret_cast<std::uintptr_t>(memory) % page;
  const std::size_t whole = (size - skipped) / page * page;
  // A kernel that does not know the advice refuses, and nothing is lost.
  static_cast<void>(::madvise(static_cast<std::byte*>(memory) + skipped, whole, advice));
}

}  // namespace

void preferLargePages(void* memory, std::size_t size) noexcept {
  advise(memory, size, MADV_HUGEPAGE);
}

void offerBack(void* memory, std::size_t size) noexcept { advise(memory, size, MADV_FREE); }

}  // namespace tolvanite
