// Which thread a call is made on.
#pragma once

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Whether the calling thread is the one that the process was started with.
TOLVANITE_EXPORT bool isMainThread() noexcept;

}  // namespace tolvanite
