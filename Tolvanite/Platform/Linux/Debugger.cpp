#include <Tolvanite/Platform/Debugger.h>

#include <fstream>
#include <string>

namespace tolvanite {

bool isDebuggerAttached() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "TracerPid:") continue;
    long tracer = 0;
    return status >> tracer && tracer != 0;
  }
  return false;
}

}  // namespace tolvanite
