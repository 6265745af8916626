// tolvanite-demo [FOLDER]: a folder tree in a keyed array, watched through a view that is filtered
// and sorted, by a table that lives on the view's events alone. Only reads the folder: all changes
// are to the model.
#include <cstdio>
#include <exception>
#include <iterator>
#include <string>

#include <fmt/format.h>

#include "Demo.h"
#include "FolderScan.h"
#include "Printing.h"

namespace {

demo::FolderScan scan(const std::string& folder) {
  fmt::print("Reading {}\n", demo::printable(folder));
  const demo::Stopwatch stopwatch;
  demo::FolderScan result = [&] {
    demo::ProgressLine line;
    return demo::scanFolder(folder, [&](const demo::FolderScan& soFar) {
      line.show([&] { return demo::grouped(std::ssize(soFar.files)) + " files so far"; });
    });
  }();
  fmt::print(
      "{} files of {} bytes in {} folders, read in {}; {} unreadable, {} links and devices "
      "left alone\n",
      demo::grouped(std::ssize(result.files)), demo::grouped(result.bytes),
      demo::grouped(result.folders), stopwatch.text(), demo::grouped(result.unreadable),
      demo::grouped(result.left));
  return result;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  constexpr int checkFailed = 1;
  constexpr int cannotRun = 2;
  const std::string folder = argumentCount > 1 ? arguments[1] : "/usr";
  if (argumentCount > 2 || folder == "-h" || folder == "--help") {
    const bool isAskedFor = argumentCount == 2;
    std::fputs("Usage: tolvanite-demo [FOLDER]    FOLDER is /usr if not given\n",
               isAskedFor ? stdout : stderr);
    return isAskedFor ? 0 : cannotRun;
  }
  // Whole lines, so that none is lost should the process be ended.
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  try {
    return demo::runDemo(scan(folder)) ? 0 : checkFailed;
  } catch (const std::exception& error) {
    fmt::print(stderr, "tolvanite-demo: {}\n", error.what());
    return cannotRun;
  }
}
