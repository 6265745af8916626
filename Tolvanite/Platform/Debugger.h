// Whether somebody is looking into this process.
#pragma once

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Whether a debugger or another tracer is attached to this process now. False when the system
/// does not tell.
TOLVANITE_EXPORT bool isDebuggerAttached();

}  // namespace tolvanite
