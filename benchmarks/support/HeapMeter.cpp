#include <algorithm>
#include <cstddef>

#include <malloc.h>

#include "../HeapMeter.h"

// malloc and its kin of the C library, counted. The definitions in the program stand before those
// of the library for everybody; the library keeps its own under the names below.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace {

// The programs that are measured have a single thread.
std::uint64_t asked = 0;

}  // namespace

std::uint64_t bench::heapBytesAskedFor() { return asked; }

extern "C" {

void* malloc(std::size_t size) {
  asked += size;
  return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
  asked += count * size;
  return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size) {
  const std::size_t before = block ? malloc_usable_size(block) : 0;
  asked += size - std::min(size, before);
  return __libc_realloc(block, size);
}
}
