// A fresh folder for a test, removed with all it holds at the end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace tolvanite::testing {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tolvanite-XXXXXX").native();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder " + pattern);
    path_ = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

  /// Makes the folders above a file and the file itself, and gives its path.
  std::filesystem::path write(std::string_view name, std::string_view content) const {
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    if (!(std::ofstream(file) << content)) throw std::runtime_error("no file " + file.native());
    return file;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tolvanite::testing
