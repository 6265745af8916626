#pragma once

#include <cstdint>

// Counts the memory that the process asks malloc for. A program that includes this is linked with
// the target heap_meter.
namespace bench {

/// In bytes, since the start; what was given back counts, too, and a block that grows counts as
/// what it grew by.
std::uint64_t heapBytesAskedFor();

}  // namespace bench
