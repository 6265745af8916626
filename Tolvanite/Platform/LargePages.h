// Asks the system to back large memory by large pages: touching it for the first time is then
// several times cheaper.
#pragma once

#include <cstddef>

namespace tolvanite {

/// A wish for memory of any kind, which small memory ignores.
void preferLargePages(void* memory, std::size_t size) noexcept;

}  // namespace tolvanite
