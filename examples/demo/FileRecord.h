// The model of the demo: what is known of a file, and how a list of files can be sorted.
#pragma once

#include <string>
#include <string_view>
#include <tuple>

#include <Tolvanite/Frame/AbsoluteTime.h>
#include <Tolvanite/Frame/NamedSortBlock.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/ManagedObject.h>

namespace demo {

using tolvanite::Int;

struct FileRecord {
  // A number and not the path: a file that is renamed stays the same element.
  Int key = 0;
  std::string path;  // from the folder that was read
  Int size = 0;
  tolvanite::AbsoluteTime modified;

  std::string_view name() const;
  /// The extension of the name, such as "txt"; empty if there is none.
  std::string_view kind() const;

  // Equality is that of the keys, since a view finds a file again by it after its content has
  // changed. Comparing the content here would end the process with the first update.
  bool operator==(const FileRecord& other) const { return key == other.key; }
  /// All of it, to be compared.
  auto content() const { return std::tie(key, path, size, modified); }
  std::string description() const { return path; }

  /// The record in a JSON document, and back; absent if the Json is none.
  /// @{
  tolvanite::ManagedObject jsonObjectValue() const;
  static tolvanite::Optional<FileRecord> fromJson(const tolvanite::Json& json);
  /// @}
};

// Files that tie are told apart by their keys, so that every list has one order only.
tolvanite::NamedSortBlock<FileRecord> bySize();  // the largest first
tolvanite::NamedSortBlock<FileRecord> byName();

}  // namespace demo
