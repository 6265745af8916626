#include <Tolvanite/Platform/SystemRandom.h>

#include <atomic>

#include <stdlib.h>

namespace tolvanite {

namespace {

std::atomic<SystemRandom*> replacement = nullptr;

}  // namespace

SystemRandom::~SystemRandom() = default;

std::uint32_t SystemRandom::word() { return arc4random(); }

std::uint32_t SystemRandom::uniform(std::uint32_t bound) { return arc4random_uniform(bound); }

void SystemRandom::fill(std::span<std::byte> bytes) { arc4random_buf(bytes.data(), bytes.size()); }

SystemRandom& systemRandom() noexcept {
  // Never destroyed, so that it serves other objects to the end of the process.
  static SystemRandom& own = *new SystemRandom;
  SystemRandom* const set = replacement.load(std::memory_order_acquire);
  return set != nullptr ? *set : own;
}

SystemRandom* setSystemRandom(SystemRandom* source) noexcept {
  return replacement.exchange(source, std::memory_order_acq_rel);
}

}  // namespace tolvanite
