#include <Tolvanite/Frame/FileManager.h>

#include <system_error>

#include <fmt/format.h>

#include <Tolvanite/Frame/Error.h>

namespace tolvanite {

constinit const FileManager FileManager::defaultManager{};

void FileManager::createDirectory(const std::filesystem::path& path) const {
  std::error_code code;
  std::filesystem::create_directories(path, code);
  if (code) {
    throw Error(fmt::format("Cannot create the folder \"{}\": {}", path.string(), code.message()));
  }
}

}  // namespace tolvanite
