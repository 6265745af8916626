#include <chrono>
#include <string>
#include <utility>

#include <Tolvanite/Frame/Error.h>

#include "FolderScan.h"
#include "Printing.h"

namespace demo {

namespace fs = std::filesystem;

// Links are left alone, so a loop of them does no harm.
static void addEntry(const fs::directory_entry& entry, std::string path, FolderScan& scan,
                     std::vector<std::string>& pending) {
  try {
    if (entry.is_symlink()) return;
    if (entry.is_directory()) return pending.push_back(std::move(path));
    if (!entry.is_regular_file()) return;
    const auto size = static_cast<Int>(entry.file_size());
    const auto modified = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
        std::chrono::file_clock::to_sys(entry.last_write_time()));
    scan.files.push_back(
        {std::ssize(scan.files), std::move(path), size, tolvanite::AbsoluteTime(modified)});
  } catch (const fs::filesystem_error&) {
    ++scan.unreadable;
  }
}

FolderScan scanFolder(const fs::path& root,
                      const tolvanite::Block<void(const FolderScan&)>& progress) {
  FolderScan scan;
  std::vector<std::string> pending{""};
  while (!pending.empty()) {
    const std::string folder = std::move(pending.back());
    pending.pop_back();
    try {
      for (const fs::directory_entry& entry : fs::directory_iterator(root / folder)) {
        addEntry(entry, (fs::path(folder) / entry.path().filename()).native(), scan, pending);
      }
      ++scan.folders;
    } catch (const fs::filesystem_error& error) {
      if (folder.empty()) {
        throw tolvanite::Error("cannot read the folder \"" + printable(root.native()) +
                               "\": " + error.code().message());
      }
      ++scan.unreadable;
    }
    progress(scan);
  }
  return scan;
}

}  // namespace demo
