// The system's random device, /dev/urandom, as a generator. Any failure of the device is fatal.
//
//   DevRandom device;                                    // opened once, for many reads
//   device.randomize(key.data(), 32);
//   const std::uint64_t seed = DevRandom::random64Once();   // opened for this read
#pragma once

#include <cstdint>
#include <memory>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Random/RandomGenerator.h>

namespace tolvanite {

/// Copies share the open descriptor. Every draw is a call of the system.
class TOLVANITE_EXPORT DevRandom : public RandomGeneratorDefaults<DevRandom> {
 public:
  /// An open descriptor, closed when the last generator that shares it ends.
  class TOLVANITE_EXPORT FileDescriptor {
   public:
    FileDescriptor();
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    /// The number that the system calls it by; never negative, as failing to open is fatal.
    const std::int32_t fd;
  };

  using RandomGeneratorDefaults::randomize;

  /// Opens the device.
  DevRandom() : fileDescriptor_(std::make_shared<const FileDescriptor>()) {}

  /// The descriptor that is read.
  const FileDescriptor& fileDescriptor() const { return *fileDescriptor_; }

  /// Fills `size` bytes by one read, which must give all of them: how much one read can give is up
  /// to the system. A negative size is fatal.
  void randomize(void* buffer, Int size);

  /// `random64` and `randomize` of a device that is opened and closed for this one read. Any thread
  /// may call them.
  /// @{
  static std::uint64_t random64Once();
  static void randomizeOnce(void* buffer, Int size);
  /// @}

 private:
  std::shared_ptr<const FileDescriptor> fileDescriptor_;
};

}  // namespace tolvanite
