#include <array>
#include <tuple>
#include <utility>

#include <Tolvanite/Frame/Unicode.h>

#include "FileRecord.h"

namespace demo {

std::string_view nameOf(FileKind kind) {
  static constexpr std::array<std::string_view, kindCount> names = {
      "code", "text", "picture", "sound", "archive", "program", "other"};
  return names.at(static_cast<std::size_t>(kind));
}

FileKind kindOfName(std::string_view name) {
  using enum FileKind;
  // Each extension between blanks.
  static constexpr std::array<std::pair<FileKind, std::string_view>, 6> extensions = {{
      {code, " c cc cpp css h hpp js json pl pm py rs sh ts xml "},
      {text, " html md mo pdf po rst tex txt "},
      {picture, " gif ico jpeg jpg png svg webp "},
      {sound, " flac mp3 oga ogg wav "},
      {archive, " bz2 deb gz tar xz zip zst "},
      {program, " a exe jar ko o pyc so "},
  }};
  const std::size_t dot = name.rfind('.');
  // A dot in front hides a file and is no extension.
  if (dot == std::string_view::npos || dot == 0) return other;
  const std::string extension = ' ' + tolvanite::lowercased(name.substr(dot + 1)) + ' ';
  for (const auto& [kind, known] : extensions) {
    if (extension.find(' ', 1) == extension.size() - 1 && known.find(extension) != known.npos) {
      return kind;
    }
  }
  return other;
}

std::string_view FileRecord::name() const {
  return std::string_view(path).substr(path.rfind('/') + 1);
}

bool haveSameContent(const FileRecord& a, const FileRecord& b) {
  return std::tie(a.key, a.path, a.kind, a.size, a.modified) ==
         std::tie(b.key, b.path, b.kind, b.size, b.modified);
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
