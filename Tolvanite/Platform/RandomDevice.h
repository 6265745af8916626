// The system's random device as the three calls that a reader needs, behind a seam, so that a test
// can let them fail and script what is read.
//
//   tolvanite::RandomDevice& device = tolvanite::randomDevice();
//   const std::int32_t descriptor = device.open();
//   const bool isFilled = device.read(descriptor, bytes);
//   device.close(descriptor);
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Cryptographically strong random bytes of the system, on any thread.
class TOLVANITE_EXPORT RandomDevice {
 public:
  RandomDevice() = default;
  RandomDevice(const RandomDevice&) = delete;
  RandomDevice& operator=(const RandomDevice&) = delete;
  virtual ~RandomDevice();

  /// A new descriptor, open for reading; negative if that fails.
  virtual std::int32_t open();
  /// Fills the bytes by one read; whether that gave all of them.
  virtual bool read(std::int32_t descriptor, std::span<std::byte> bytes);
  /// Closes a descriptor.
  virtual void close(std::int32_t descriptor);
};

/// The device that the library reads now.
TOLVANITE_EXPORT RandomDevice& randomDevice() noexcept;

/// Makes `device`, which must outlive its use, the device that the library reads, or the system's
/// own if it is null. Gives the one before, to be set again, or null if that was the system's own.
TOLVANITE_EXPORT RandomDevice* setRandomDevice(RandomDevice* device) noexcept;

}  // namespace tolvanite
