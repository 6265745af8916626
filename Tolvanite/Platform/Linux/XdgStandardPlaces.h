// The standard places of a Linux desktop, by the XDG base directory rules.
//
//   const tolvanite::XdgStandardPlaces places;
//   places.standardDirectory(tolvanite::StandardDirectory::caches)   "/home/me/.cache"
//
//   home                  $HOME, else the home of the user's account, else "/"
//   temporary             $TMPDIR, else "/tmp"
//   application support   $XDG_DATA_HOME, else ~/.local/share
//   library               the same: it is where a user's data lies that is no document
//   caches                $XDG_CACHE_HOME, else ~/.cache
//   desktop, documents    as user-dirs.dirs in $XDG_CONFIG_HOME, else ~/.config, names them; else
//                         ~/Desktop and ~/Documents
//   group container       "group-containers" and the group's identifier in application support
//
// A variable that is empty or no absolute path counts as not set. The environment and the file are
// read at each call.
#pragma once

#include <mutex>

#include <Tolvanite/Platform/StandardPlaces.h>

namespace tolvanite {

class TOLVANITE_EXPORT XdgStandardPlaces : public StandardPlaces {
 public:
  /// The main bundle is that of the process's executable, or of the one given.
  XdgStandardPlaces() = default;
  explicit XdgStandardPlaces(std::filesystem::path executable);

  /// What the functions of these names do for the system's look-ups. Without the first one, the
  /// main bundle's identifier is the first line of the file "<executable>.bundle" if there is one,
  /// else the executable's name; its resources are the folder "Resources" beside the executable
  /// or "../share/<executable's name>" seen from there, if one of them exists.
  void setMainBundle(std::string identifier,
                     std::optional<std::filesystem::path> resources = std::nullopt);
  void addBundle(std::string identifier,
                 std::optional<std::filesystem::path> resources = std::nullopt);

  std::filesystem::path homeDirectory() const override;
  std::filesystem::path temporaryDirectory() const override;
  std::optional<std::filesystem::path> standardDirectory(StandardDirectory code) const override;
  std::optional<std::string> mainBundleIdentifier() const override;
  std::optional<std::filesystem::path> mainBundleResources() const override;
  std::optional<Bundle> bundle(std::string_view identifier) const override;
  std::vector<std::string> bundleIdentifiers() const override;
  /// Absent for an identifier that is no plain name of a folder.
  std::optional<std::filesystem::path> groupContainer(std::string_view identifier) const override;

 private:
  std::optional<Bundle> mainBundle() const;

  const std::optional<std::filesystem::path> executable_;
  mutable std::mutex mutex_;
  std::optional<Bundle> mainBundle_;
  std::vector<Bundle> bundles_;
};

}  // namespace tolvanite
