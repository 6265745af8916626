#include <Tolvanite/Frame/FileLocation.h>

#include "FileRecord.h"

namespace demo {

using tolvanite::FileLocation;
using tolvanite::Json;
using tolvanite::ManagedDictionary;
using tolvanite::ManagedObject;
using tolvanite::Optional;

std::string_view FileRecord::name() const {
  return std::string_view(path).substr(path.rfind('/') + 1);
}

std::string_view FileRecord::kind() const {
  const std::size_t dot = name().rfind('.');
  // A dot in front hides a file and is no extension.
  return dot == std::string_view::npos || dot == 0 ? "" : name().substr(dot + 1);
}

// A JSON text is UTF-8, and a file's name may hold any byte but two: as the text of a location it
// is percent-encoded and comes back as it was. The time is a number, since as a text it would end
// with its milliseconds.
ManagedObject FileRecord::jsonObjectValue() const {
  return ManagedDictionary{{"key", key},
                           {"location", FileLocation("/" + path).absoluteString()},
                           {"size", size},
                           {"modified", modified.secondsSinceEpoch()}};
}

Optional<FileRecord> FileRecord::fromJson(const Json& json) {
  const auto key = json["key"].asInt();
  const auto location = json["location"].url();
  const auto size = json["size"].asInt();
  const auto modified = json["modified"].asDouble();
  if (!key || !location || !size || !modified) return {};
  return FileRecord{*key, location->path().substr(1), *size, tolvanite::AbsoluteTime(*modified)};
}

tolvanite::NamedSortBlock<FileRecord> bySize() {
  return {"size", [](const FileRecord& a, const FileRecord& b) {
            return a.size != b.size ? a.size > b.size : a.key < b.key;
          }};
}

tolvanite::NamedSortBlock<FileRecord> byName() {
  return {"name", [](const FileRecord& a, const FileRecord& b) {
            const int order = a.name().compare(b.name());
            return order != 0 ? order < 0 : a.key < b.key;
          }};
}

}  // namespace demo
