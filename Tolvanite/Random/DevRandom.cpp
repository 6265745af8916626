#include <Tolvanite/Random/DevRandom.h>

#include <cstddef>
#include <span>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Platform/RandomDevice.h>

namespace tolvanite {

DevRandom::FileDescriptor::FileDescriptor() : fd(randomDevice().open()) {
  if (fd < 0) fatalFailure("");
}

DevRandom::FileDescriptor::~FileDescriptor() { randomDevice().close(fd); }

void DevRandom::randomize(void* buffer, Int size) {
  if (size < 0) fatalFailure("");
  const std::span bytes(static_cast<std::byte*>(buffer), static_cast<std::size_t>(size));
  if (!randomDevice().read(fileDescriptor().fd, bytes)) fatalFailure("");
}

std::uint64_t DevRandom::random64Once() { return DevRandom().random64(); }

void DevRandom::randomizeOnce(void* buffer, Int size) { DevRandom().randomize(buffer, size); }

}  // namespace tolvanite
