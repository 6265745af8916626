// A hint to the system about a large piece of memory that is about to be filled.
//
//   std::vector<std::byte> bytes;
//   bytes.reserve(size);
//   tolvanite::expectFilling(bytes.data(), size);
#pragma once

#include <cstddef>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Tells that `size` bytes from `start` are going to be written, so that the system can give them
/// in large pages, which takes a fraction of the time. Nothing else changes; small sizes are left
/// alone.
TOLVANITE_EXPORT void expectFilling(void* start, std::size_t size) noexcept;

}  // namespace tolvanite
