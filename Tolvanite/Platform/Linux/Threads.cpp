#include <Tolvanite/Platform/Threads.h>

#include <unistd.h>

namespace tolvanite {

bool isMainThread() noexcept { return ::gettid() == ::getpid(); }

}  // namespace tolvanite
