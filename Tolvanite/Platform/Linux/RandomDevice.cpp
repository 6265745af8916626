#include <Tolvanite/Platform/RandomDevice.h>

#include <fcntl.h>
#include <unistd.h>

namespace tolvanite {

std::int32_t openRandomDevice() noexcept { return open("/dev/urandom", O_RDONLY | O_CLOEXEC); }

bool readRandomDevice(std::int32_t descriptor, void* buffer, std::size_t size) noexcept {
  const ssize_t count = read(descriptor, buffer, size);
  return count >= 0 && static_cast<std::size_t>(count) == size;
}

void closeRandomDevice(std::int32_t descriptor) noexcept { close(descriptor); }

}  // namespace tolvanite
