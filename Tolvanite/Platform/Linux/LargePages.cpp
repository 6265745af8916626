#include <Tolvanite/Platform/LargePages.h>

#include <cstdint>

#include <sys/mman.h>

namespace tolvanite {

void preferLargePages(void* memory, std::size_t size) noexcept {
  constexpr std::uintptr_t page = 4096;
  constexpr std::size_t smallest = 4 << 20;
  if (size < smallest) return;
  const auto start = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t first = (start + page - 1) / page * page;
  const std::uintptr_t end = (start + size) / page * page;
  // A kernel without large pages refuses, and nothing is lost.
  static_cast<void>(madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE));
}

}  // namespace tolvanite
