// The system's random device, as the few calls that a reader needs.
//
//   const std::int32_t device = tolvanite::openRandomDevice();
//   const bool isFilled = tolvanite::readRandomDevice(device, buffer, sizeof buffer);
//   tolvanite::closeRandomDevice(device);
#pragma once

#include <cstddef>
#include <cstdint>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A descriptor of the device, opened for reading; negative if that fails.
TOLVANITE_EXPORT std::int32_t openRandomDevice() noexcept;

/// Fills the buffer by one read; whether that gave all `size` bytes.
TOLVANITE_EXPORT bool readRandomDevice(std::int32_t descriptor, void* buffer,
                                       std::size_t size) noexcept;

/// Closes a descriptor.
TOLVANITE_EXPORT void closeRandomDevice(std::int32_t descriptor) noexcept;

}  // namespace tolvanite
