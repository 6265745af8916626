#include <Tolvanite/DataStructures/Owner.h>

#include <atomic>

namespace tolvanite {

namespace {

constinit std::atomic<std::uint64_t> endedTokens = 0;

}  // namespace

std::uint64_t OwnerToken::endedCount() noexcept {
  return endedTokens.load(std::memory_order_acquire);
}

void OwnerToken::countEnd() noexcept { endedTokens.fetch_add(1, std::memory_order_release); }

}  // namespace tolvanite
