#include <Tolvanite/Platform/RandomDevice.h>

#include <atomic>

#include <fcntl.h>
#include <unistd.h>

namespace tolvanite {

namespace {

std::atomic<RandomDevice*> replacement = nullptr;

}  // namespace

RandomDevice::~RandomDevice() = default;

std::int32_t RandomDevice::open() { return ::open("/dev/urandom", O_RDONLY | O_CLOEXEC); }

bool RandomDevice::read(std::int32_t descriptor, std::span<std::byte> bytes) {
  const ssize_t count = ::read(descriptor, bytes.data(), bytes.size());
  return count >= 0 && static_cast<std::size_t>(count) == bytes.size();
}

void RandomDevice::close(std::int32_t descriptor) { ::close(descriptor); }

RandomDevice& randomDevice() noexcept {
  // Never destroyed, so that it serves other objects to the end of the process.
  static RandomDevice& own = *new RandomDevice;
  RandomDevice* const set = replacement.load(std::memory_order_acquire);
  return set != nullptr ? *set : own;
}

RandomDevice* setRandomDevice(RandomDevice* device) noexcept {
  return replacement.exchange(device, std::memory_order_acq_rel);
}

}  // namespace tolvanite
