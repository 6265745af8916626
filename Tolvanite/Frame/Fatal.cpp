#include <Tolvanite/Frame/Fatal.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <fmt/format.h>

namespace tolvanite {

void fatalFailure(std::string_view message, std::source_location location) {
  const std::string colonAndMessage = message.empty() ? "" : fmt::format(": {}", message);
  const std::string line = fmt::format("Fatal error{}: file {}, line {}\n", colonAndMessage,
                                       location.file_name(), location.line());
  std::fflush(stdout);
  std::fwrite(line.data(), 1, line.size(), stderr);
  std::fflush(stderr);
  std::abort();
}

void fatalIndexOutOfRange(Int index, Int count, std::source_location location) {
  fatalFailure(fmt::format("Index {} out of range, {} elements", index, count), location);
}

void fatalOverflow(std::source_location location) { fatalFailure("Arithmetic overflow", location); }

}  // namespace tolvanite
