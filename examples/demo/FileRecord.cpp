#include "FileRecord.h"

namespace demo {

std::string_view FileRecord::name() const {
  return std::string_view(path).substr(path.rfind('/') + 1);
}

std::string_view FileRecord::kind() const {
  const std::size_t dot = name().rfind('.');
  // A dot in front hides a file and is no extension.
  return dot == std::string_view::npos || dot == 0 ? "" : name().substr(dot + 1);
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
