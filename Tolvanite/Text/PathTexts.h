// Paths as texts, absolute or relative, and the names of files. Nothing is looked up on the disk;
// see FileLocation and Pascription for places on it.
//
//   stringByReplacingLastPathComponentWith("a/b.txt", "c")             "a/c"
//   tvStringByReplacingPathExtension("a/b.txt", "md")                  "a/b.md"
//   tvAppendSuffixAtEndOfNameAndBeforeExtension("a/b.txt", "-2")       "a/b-2.txt"
//
// The extension is what stands behind the last "." of the last component, unless the "." only
// begins or ends it, as in ".profile". A "/" at the end of a path counts for nothing and goes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The path with `s` in place of its last component; "/" and `s` for the root.
TOLVANITE_EXPORT std::string stringByReplacingLastPathComponentWith(std::string_view path,
                                                                    std::string_view s);

/// The path with another extension, added when it has none; an empty `s` takes the extension away.
TOLVANITE_EXPORT std::string tvStringByReplacingPathExtension(std::string_view path,
                                                              std::string_view s);

/// The path with the components behind it, a single "/" before each. Components that are empty or
/// of "/" alone are left out.
TOLVANITE_EXPORT std::string tvStringByAppendingPathComponents(
    std::string_view path, const std::vector<std::string>& components);

/// The path with the suffix between the name and the "." of the extension; behind the name when
/// there is none.
TOLVANITE_EXPORT std::string tvAppendSuffixAtEndOfNameAndBeforeExtension(std::string_view path,
                                                                         std::string_view suffix);

/// The path with its extension in lower case.
TOLVANITE_EXPORT std::string tvStringWithLowercasedExtension(std::string_view path);

/// A file name taken apart.
struct FileNameParts {
  std::string basename;          ///< What stands before the suffix and the extension.
  Optional<std::string> suffix;  ///< The six capitals, without the "_" before them.
  Optional<std::string> ext;     ///< The extension, without the "." before it.

  friend bool operator==(const FileNameParts&, const FileNameParts&) = default;
};

/// Parts a file name into its base, a suffix of "_" and six capitals A to Z, given without the "_",
/// and its extension, given without the ".": "photo_ABCDEF.jpg" is "photo", "ABCDEF" and "jpg". The
/// suffix and the extension are absent when the name has none.
TOLVANITE_EXPORT FileNameParts
extractBaseNameAndSixLetterSuffixAndExtension(std::string_view fileName);

}  // namespace tolvanite
