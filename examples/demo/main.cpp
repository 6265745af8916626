// tolvanite-demo [FOLDER]: a folder tree in a keyed array, watched through a view that is filtered
// and sorted, by a table that lives on the view's events alone; then stored as JSON and read again.
// Only reads the folder: all changes are to the model, and files are written to the user's caches.
// Ends with 1 if a check failed, and with 2 if it could not run.
#include <cstdio>
#include <exception>
#include <iterator>
#include <string>

#include <fmt/format.h>
#include <unistd.h>

#include "Demo.h"
#include "FolderScan.h"
#include "Printing.h"

namespace {

demo::FolderScan scan(const std::string& folder) {
  fmt::print("Reading {}\n", demo::printable(folder));
  const bool isTerminal = isatty(STDOUT_FILENO) == 1;
  const demo::Stopwatch stopwatch;
  demo::Stopwatch sinceShown;
  demo::FolderScan result = demo::scanFolder(folder, [&](const demo::FolderScan& soFar) {
    if (!isTerminal || sinceShown.seconds() < 0.1) return;
    sinceShown = demo::Stopwatch();
    fmt::print("\r\033[K{} files so far", demo::grouped(std::ssize(soFar.files)));
    std::fflush(stdout);
  });
  if (isTerminal) fmt::print("\r\033[K");
  fmt::print("{} files in {} folders, read in {}; {} folders or files unreadable\n",
             demo::grouped(std::ssize(result.files)), demo::grouped(result.folders),
             stopwatch.text(), demo::grouped(result.unreadable));
  return result;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const std::string folder = argumentCount > 1 ? arguments[1] : "/usr";
  if (argumentCount > 2 || folder == "-h" || folder == "--help") {
    fmt::print(stderr, "Usage: tolvanite-demo [FOLDER]    FOLDER is /usr if not given\n");
    return argumentCount > 2 ? 2 : 0;
  }
  // Whole lines, so that none is lost should the process be ended.
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  try {
    return demo::runDemo(scan(folder).files) ? 0 : 1;
  } catch (const std::exception& error) {
    fmt::print(stderr, "tolvanite-demo: {}\n", error.what());
    return 2;
  }
}
