// Reads the files of a folder and of all folders in it.
#pragma once

#include <filesystem>
#include <vector>

#include <Tolvanite/Frame/Types.h>

#include "FileRecord.h"

namespace demo {

struct FolderScan {
  std::vector<FileRecord> files;
  Int folders = 0;
  Int unreadable = 0;  // folders that could not be read to their end, files that were gone
};

/// Calls `progress` after each folder with what is there so far. Throws a tolvanite::Error if
/// `root` is no folder or can't be read; what can't be read below it is counted and passed over.
FolderScan scanFolder(const std::filesystem::path& root,
                      const tolvanite::Block<void(const FolderScan&)>& progress);

}  // namespace demo
