#include <Tolvanite/Platform/LargeMemory.h>

#include <cstdint>

#include <sys/mman.h>

namespace tolvanite {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20;

}  // namespace

void expectFilling(void* start, std::size_t size) noexcept {
  if (size < 4 * largePage) return;
  // The whole large pages within; what lies around them may belong to others.
  const std::size_t skipped = -reinterpret_cast<std::uintptr_t>(start) % largePage;
  const std::size_t whole = (size - skipped) / largePage * largePage;
  // A system that refuses goes on with small pages.
  static_cast<void>(::madvise(static_cast<std::byte*>(start) + skipped, whole, MADV_HUGEPAGE));
}

}  // namespace tolvanite
