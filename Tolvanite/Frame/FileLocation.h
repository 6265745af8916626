// A place in the file system, as a `file:` location: an absolute path and whether it is meant as
// a directory.
//
//   const auto home = FileLocation::directory("/home/me");
//   const auto notes = home.appendingPathComponent("my notes").appendingPathExtension("txt");
//   notes.path()             "/home/me/my notes.txt"
//   notes.absoluteString()   "file:///home/me/my%20notes.txt"
//   home.absoluteString()    "file:///home/me/"
//   std::ifstream stream(notes.filesystemPath());
//
// A location is a name: making and changing one never looks at the disk, and the pieces "." and
// ".." and symbolic links stay as they are. Slashes that follow one another count as one.
#pragma once

#include <compare>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// An absolute path and whether it is meant as a directory.
class TOLVANITE_EXPORT FileLocation {
 public:
  /// The location of a path; a directory if the path ends in "/". A relative path is taken from
  /// the process's current directory as it is now; if that is gone, this throws a
  /// std::filesystem::filesystem_error.
  explicit FileLocation(const std::filesystem::path& path);

  /// The location of a path that is meant as a directory.
  static FileLocation directory(const std::filesystem::path& path);

  /// The location that an `absoluteString` names. Absent if the text does not begin with
  /// "file:///" or "file://localhost/", or has a "%" that two hexadecimal digits do not follow.
  static Optional<FileLocation> fromAbsoluteString(std::string_view text);

  /// The path, without a "/" at its end unless it is the root. A temporary gives it away.
  /// @{
  const std::string& path() const& noexcept { return path_; }
  std::string path() && noexcept { return std::move(path_); }
  /// @}
  /// The path for the standard library.
  std::filesystem::path filesystemPath() const { return path_; }

  /// Whether the location is meant as a directory, whatever is on the disk.
  bool isDirectory() const noexcept { return isDirectory_; }

  /// The text "file://" and the path, with a "/" at the end of a directory. Bytes that a URL's
  /// path does not take are percent-encoded.
  std::string absoluteString() const;

  /// The location of something in this one. The component may hold several separated by "/". It
  /// is a directory if `isDirectory` says so or the component is empty or ends in "/".
  FileLocation appendingPathComponent(std::string_view component, bool isDirectory = false) const;

  /// The name with "." and `extension` behind it. Unchanged for an empty extension and the root.
  FileLocation appendingPathExtension(std::string_view extension) const;

  /// The text behind the last "/" of the path; "/" of the root.
  std::string lastPathComponent() const;

  /// The text behind the last "." of the last component. Empty if there is none or if it only
  /// begins the name, as in ".profile".
  std::string pathExtension() const;

  /// The directory that holds this location; the root for the root.
  FileLocation deletingLastPathComponent() const;

  /// The location without its path extension and the "." before it.
  FileLocation deletingPathExtension() const;

  /// What is on the disk at this moment. False if nothing is there or if it can't be told.
  /// @{
  bool fileExists() const;
  bool fileExistsAndIsDirectory() const;
  bool fileExistsAndIsNotDirectory() const;
  /// @}

  /// The absolute string.
  std::string description() const { return absoluteString(); }

  /// Equal are locations of equal paths that agree in being a directory; the order is by path.
  friend bool operator==(const FileLocation&, const FileLocation&) = default;
  friend std::strong_ordering operator<=>(const FileLocation&, const FileLocation&) = default;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const FileLocation& location);

 private:
  FileLocation(std::string_view absolutePath, bool isDirectory);

  std::string path_;
  bool isDirectory_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::FileLocation> {
  std::size_t operator()(const tolvanite::FileLocation& location) const noexcept {
    return std::hash<std::string>()(location.path()) + (location.isDirectory() ? 1 : 0);
  }
};
