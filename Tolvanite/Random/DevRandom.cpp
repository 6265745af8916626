#include <Tolvanite/Random/DevRandom.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Platform/RandomDevice.h>

namespace tolvanite {

DevRandom::FileDescriptor::FileDescriptor() : fd(openRandomDevice()) {
  if (fd < 0) fatalFailure("");
}

DevRandom::FileDescriptor::~FileDescriptor() { closeRandomDevice(fd); }

void DevRandom::randomize(void* buffer, Int size) {
  if (size < 0 || !readRandomDevice(fileDescriptor().fd, buffer, static_cast<std::size_t>(size))) {
    fatalFailure("");
  }
}

std::uint64_t DevRandom::random64Once() { return DevRandom().random64(); }

void DevRandom::randomizeOnce(void* buffer, Int size) { DevRandom().randomize(buffer, size); }

}  // namespace tolvanite
