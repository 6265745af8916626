// The model of the demo: what is known of a file, and how a list of files can be filtered and
// sorted.
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/NamedSortBlock.h>
#include <Tolvanite/Frame/Types.h>

namespace demo {

using tolvanite::Int;

enum class FileKind { code, text, picture, sound, archive, program, other };
inline constexpr int kindCount = static_cast<int>(FileKind::other) + 1;

std::string_view nameOf(FileKind kind);

/// The kind as the extension of a file's name tells it.
FileKind kindOfName(std::string_view name);

struct FileRecord {
  // A number and not the path: a file that is renamed stays the same element.
  Int key = 0;
  std::string path;  // from the folder that was read
  FileKind kind = FileKind::other;
  Int size = 0;
  tolvanite::AbsoluteTime modified;

  std::string_view name() const;

  // Equality is that of the keys, since a view finds a file again by it after its content has
  // changed. Comparing the content here would end the process with the first update.
  bool operator==(const FileRecord& other) const { return key == other.key; }
  std::string description() const { return path; }
};

bool haveSameContent(const FileRecord& a, const FileRecord& b);

// Files that tie are told apart by their keys, so that every list has one order only.
tolvanite::NamedSortBlock<FileRecord> bySize();  // the largest first
tolvanite::NamedSortBlock<FileRecord> byName();

}  // namespace demo
