#include <chrono>
#include <string>
#include <system_error>

#include <Tolvanite/Frame/Error.h>

#include "FolderScan.h"
#include "Printing.h"

namespace demo {

namespace fs = std::filesystem;

// Links are left alone, so a loop of them does no harm.
static void addEntry(const fs::directory_entry& entry, const std::string& path, FolderScan& scan,
                     std::vector<std::string>& pending) {
  std::error_code error;
  const bool isLink = entry.is_symlink(error);
  if (!isLink && entry.is_directory(error)) return pending.push_back(path);
  if (isLink || !entry.is_regular_file(error)) {
    ++(error ? scan.unreadable : scan.left);
    return;
  }
  const auto size = static_cast<Int>(entry.file_size(error));
  const auto modified = error ? fs::file_time_type() : entry.last_write_time(error);
  if (error) {
    ++scan.unreadable;
    return;
  }
  const auto time = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
      std::chrono::file_clock::to_sys(modified));
  scan.files.push_back({.key = std::ssize(scan.files),
                        .path = path,
                        .kind = kindOfName(entry.path().filename().native()),
                        .size = size,
                        .modified = tolvanite::AbsoluteTime(time)});
  scan.bytes += size;
}

FolderScan scanFolder(const fs::path& root,
                      const tolvanite::Block<void(const FolderScan&)>& progress) {
  FolderScan scan;
  std::vector<std::string> pending{""};
  while (!pending.empty()) {
    const std::string folder = std::move(pending.back());
    pending.pop_back();
    std::error_code error;
    fs::directory_iterator entries(root / folder, error);
    if (error && folder.empty()) {
      throw tolvanite::Error("cannot read the folder \"" + printable(root.native()) +
                             "\": " + error.message());
    }
    // A step that fails ends the iteration.
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
      std::string path = folder.empty() ? "" : folder + '/';
      path += entries->path().filename().native();
      addEntry(*entries, path, scan, pending);
    }
    ++(error ? scan.unreadable : scan.folders);
    progress(scan);
  }
  return scan;
}

}  // namespace demo
