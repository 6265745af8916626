#include <Tolvanite/Platform/Linux/XdgStandardPlaces.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <utility>

#include <pwd.h>
#include <unistd.h>

namespace tolvanite {

namespace {

namespace fs = std::filesystem;

// The folder that a variable names; absent if it is not set, empty or relative.
std::optional<fs::path> folderOfVariable(const char* name) {
  const char* value = std::getenv(name);
  if (value == nullptr || value[0] != '/') return std::nullopt;
  return fs::path(value);
}

std::optional<fs::path> homeOfAccount() {
  std::vector<char> buffer(1024);
  passwd entry{};
  passwd* found = nullptr;
  int error = 0;
  while ((error = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found)) == ERANGE) {
    buffer.resize(buffer.size() * 2);
  }
  if (error != 0 || found == nullptr || found->pw_dir[0] != '/') return std::nullopt;
  return fs::path(found->pw_dir);
}

// What a line of user-dirs.dirs gives for a key, as in `XDG_DESKTOP_DIR="$HOME/Desktop"`: the file
// is a shell script of such lines alone, whose paths are absolute or begin with $HOME.
std::optional<fs::path> userDirectory(std::string_view line, std::string_view key,
                                      const fs::path& home) {
  const auto skipBlanks = [&line] {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  };
  const auto skip = [&line](std::string_view text) {
    const bool found = line.starts_with(text);
    if (found) line.remove_prefix(text.size());
    return found;
  };
  skipBlanks();
  if (!skip(key)) return std::nullopt;
  skipBlanks();
  if (!skip("=")) return std::nullopt;
  skipBlanks();
  if (!skip("\"")) return std::nullopt;
  const bool isInHome = skip("$HOME");
  const bool isWholeHome = isInHome && line.starts_with('"');
  if (!isWholeHome && !line.starts_with('/')) return std::nullopt;
  std::string value = isInHome ? home.native() : std::string();
  for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
    if (line[i] == '\\' && i + 1 < line.size()) ++i;
    value += line[i];
  }
  return fs::path(value);
}

fs::path userDirectory(std::string_view key, const fs::path& home, const char* usualName) {
  fs::path result = home / usualName;
  std::ifstream file(folderOfVariable("XDG_CONFIG_HOME").value_or(home / ".config") /
                     "user-dirs.dirs");
  // As in a shell, the last line for a key counts.
  for (std::string line; std::getline(file, line);) {
    if (auto named = userDirectory(line, key, home)) result = std::move(*named);
  }
  return result;
}

StandardPlaces::Bundle bundleOfExecutable(const fs::path& executable) {
  StandardPlaces::Bundle result;
  const std::string name = executable.filename().native();
  std::ifstream file(executable.native() + ".bundle");
  if (!std::getline(file, result.identifier) || result.identifier.empty()) result.identifier = name;
  const fs::path folder = executable.parent_path();
  for (const fs::path& resources : {folder / "Resources", folder.parent_path() / "share" / name}) {
    std::error_code error;
    if (!fs::is_directory(resources, error)) continue;
    result.resources = resources;
    break;
  }
  return result;
}

// Never destroyed, so that it serves to the very end of the process.
const std::shared_ptr<XdgStandardPlaces>& systemPlaces() {
  static const auto& result =
      *new std::shared_ptr<XdgStandardPlaces>(std::make_shared<XdgStandardPlaces>());
  return result;
}

}  // namespace

XdgStandardPlaces::XdgStandardPlaces(fs::path executable) : executable_(std::move(executable)) {}

void XdgStandardPlaces::setMainBundle(std::string identifier, std::optional<fs::path> resources) {
  const std::lock_guard lock(mutex_);
  mainBundle_ = Bundle{std::move(identifier), std::move(resources)};
}

void XdgStandardPlaces::addBundle(std::string identifier, std::optional<fs::path> resources) {
  const std::lock_guard lock(mutex_);
  const auto known = std::ranges::find(bundles_, identifier, &Bundle::identifier);
  if (known == bundles_.end()) {
    bundles_.push_back({std::move(identifier), std::move(resources)});
  } else {
    known->resources = std::move(resources);
  }
}

fs::path XdgStandardPlaces::homeDirectory() const {
  if (auto home = folderOfVariable("HOME")) return *home;
  return homeOfAccount().value_or("/");
}

fs::path XdgStandardPlaces::temporaryDirectory() const {
  return folderOfVariable("TMPDIR").value_or("/tmp");
}

std::optional<fs::path> XdgStandardPlaces::standardDirectory(StandardDirectory code) const {
  const fs::path home = homeDirectory();
  switch (code) {
    case StandardDirectory::library:
    case StandardDirectory::applicationSupport:
      return folderOfVariable("XDG_DATA_HOME").value_or(home / ".local" / "share");
    case StandardDirectory::caches:
      return folderOfVariable("XDG_CACHE_HOME").value_or(home / ".cache");
    case StandardDirectory::desktop:
      return userDirectory("XDG_DESKTOP_DIR", home, "Desktop");
    case StandardDirectory::documents:
      return userDirectory("XDG_DOCUMENTS_DIR", home, "Documents");
  }
  return std::nullopt;
}

std::optional<StandardPlaces::Bundle> XdgStandardPlaces::mainBundle() const {
  {
    const std::lock_guard lock(mutex_);
    if (mainBundle_) return mainBundle_;
  }
  if (executable_) return bundleOfExecutable(*executable_);
  std::error_code error;
  const fs::path executable = fs::read_symlink("/proc/self/exe", error);
  if (error) return std::nullopt;
  return bundleOfExecutable(executable);
}

std::optional<std::string> XdgStandardPlaces::mainBundleIdentifier() const {
  const auto main = mainBundle();
  return main ? std::optional(main->identifier) : std::nullopt;
}

std::optional<fs::path> XdgStandardPlaces::mainBundleResources() const {
  const auto main = mainBundle();
  return main ? main->resources : std::nullopt;
}

std::optional<StandardPlaces::Bundle> XdgStandardPlaces::bundle(std::string_view identifier) const {
  if (auto main = mainBundle(); main && main->identifier == identifier) return main;
  const std::lock_guard lock(mutex_);
  const auto known = std::ranges::find(bundles_, identifier, &Bundle::identifier);
  return known == bundles_.end() ? std::nullopt : std::optional(*known);
}

std::vector<std::string> XdgStandardPlaces::bundleIdentifiers() const {
  std::vector<std::string> result;
  if (auto main = mainBundleIdentifier()) result.push_back(std::move(*main));
  const std::lock_guard lock(mutex_);
  for (const Bundle& bundle : bundles_) result.push_back(bundle.identifier);
  return result;
}

std::optional<fs::path> XdgStandardPlaces::groupContainer(std::string_view identifier) const {
  if (identifier.empty() || identifier == "." || identifier == "..") return std::nullopt;
  if (identifier.find('/') != std::string_view::npos) return std::nullopt;
  return *standardDirectory(StandardDirectory::applicationSupport) / "group-containers" /
         identifier;
}

std::shared_ptr<const StandardPlaces> detail::systemStandardPlaces() { return systemPlaces(); }

void setMainBundle(std::string identifier, std::optional<fs::path> resources) {
  systemPlaces()->setMainBundle(std::move(identifier), std::move(resources));
}

void addBundle(std::string identifier, std::optional<fs::path> resources) {
  systemPlaces()->addBundle(std::move(identifier), std::move(resources));
}

}  // namespace tolvanite
