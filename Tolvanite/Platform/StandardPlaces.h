// Where the system keeps things: the one set of look-ups that the library asks for homes, standard
// folders, bundles and group containers. The library finds them in the usual folders of the
// system; a host or a test may put its own answers in their place.
//
//   const auto home = tolvanite::standardPlaces()->homeDirectory();
//   tolvanite::setMainBundle("org.example.editor", "/usr/share/editor");
//   tolvanite::setStandardPlaces(std::make_shared<MyPlaces>());
//   tolvanite::setStandardPlaces(nullptr);  // the system's own again
//
// Answers are absolute paths. That one is given does not mean that anything is there.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The folders of the user that have a code.
enum class StandardDirectory : int {
  library = 5,
  documents = 9,
  desktop = 12,
  caches = 13,
  applicationSupport = 14,
};

/// The look-ups. They may be called on any thread, by several at once.
class TOLVANITE_EXPORT StandardPlaces {
 public:
  /// A program or a library with its folder of resources, which may be absent.
  struct Bundle {
    /// Its name in the system, as "org.example.editor".
    std::string identifier;
    /// The folder of its resources.
    std::optional<std::filesystem::path> resources;

    friend bool operator==(const Bundle&, const Bundle&) = default;
  };

  StandardPlaces() = default;
  StandardPlaces(const StandardPlaces&) = delete;
  StandardPlaces& operator=(const StandardPlaces&) = delete;
  virtual ~StandardPlaces();

  /// The home of the process, which a sandbox may have moved.
  virtual std::filesystem::path homeDirectory() const = 0;
  /// The folder for files that need not last.
  virtual std::filesystem::path temporaryDirectory() const = 0;
  /// The user's first folder for this code; absent if the system has none.
  virtual std::optional<std::filesystem::path> standardDirectory(StandardDirectory code) const = 0;

  /// The identifier and the resources of this program; absent if it has none.
  /// @{
  virtual std::optional<std::string> mainBundleIdentifier() const = 0;
  virtual std::optional<std::filesystem::path> mainBundleResources() const = 0;
  /// @}
  /// Absent if no such bundle is known.
  virtual std::optional<Bundle> bundle(std::string_view identifier) const = 0;
  /// The identifiers of all known bundles; that of the main one first.
  virtual std::vector<std::string> bundleIdentifiers() const = 0;

  /// The folder that the applications of a group share; absent if the group has none.
  virtual std::optional<std::filesystem::path> groupContainer(
      std::string_view identifier) const = 0;
};

/// The look-ups in use: those set last, else the system's.
TOLVANITE_EXPORT std::shared_ptr<const StandardPlaces> standardPlaces();

/// Uses these look-ups from now on, on all threads; the system's if `places` is null. Calls that
/// are under way finish with the ones before.
TOLVANITE_EXPORT void setStandardPlaces(std::shared_ptr<const StandardPlaces> places);

/// Names this program and its resources to the system's look-ups. Without this call they find both
/// by the executable.
TOLVANITE_EXPORT void setMainBundle(std::string identifier,
                                    std::optional<std::filesystem::path> resources = std::nullopt);

/// Makes a further bundle known to the system's look-ups. One of the same identifier is replaced.
TOLVANITE_EXPORT void addBundle(std::string identifier,
                                std::optional<std::filesystem::path> resources = std::nullopt);

namespace detail {

// The look-ups of the system that the library is built for.
std::shared_ptr<const StandardPlaces> systemStandardPlaces();

}  // namespace detail

}  // namespace tolvanite
