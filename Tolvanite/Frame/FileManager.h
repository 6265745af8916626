// Changes to the file system, with errors that name the path.
//
//   Fm.createDirectory("/tmp/reports/2026/march");
#pragma once

#include <filesystem>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

class TOLVANITE_EXPORT FileManager {
 public:
  /// The instance that the process shares. Usable at any time, static initialisation included.
  static const FileManager defaultManager;

  /// Makes the folder and those above it that are missing. A folder that is there already is fine.
  /// Throws an Error when the path cannot be made a folder.
  void createDirectory(const std::filesystem::path& path) const;
};

/// The process's default file manager.
inline constexpr const FileManager& Fm = FileManager::defaultManager;

}  // namespace tolvanite
