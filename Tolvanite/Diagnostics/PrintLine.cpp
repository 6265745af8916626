#include <Tolvanite/Diagnostics/PrintLine.h>

#include <cstdio>
#include <string>

namespace tolvanite {

void printLine(std::string_view line) {
  std::string whole;
  whole.reserve(line.size() + 1);
  whole.append(line).push_back('\n');
  std::fwrite(whole.data(), 1, whole.size(), stdout);
  std::fflush(stdout);
}

}  // namespace tolvanite
