// Hints to the system on how large memory is used. Small memory ignores them.
#pragma once

#include <cstddef>

namespace tolvanite {

/// Asks for large pages: touching such memory for the first time is several times cheaper.
void preferLargePages(void* memory, std::size_t size) noexcept;

/// Says that the contents are not needed any more. The system takes the pages back when somebody
/// wants them, and until then they can be written to again at no cost. Reading finds the old
/// contents or zeros.
void offerBack(void* memory, std::size_t size) noexcept;

}  // namespace tolvanite
