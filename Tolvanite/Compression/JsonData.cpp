#include <Tolvanite/Compression/JsonData.h>

#include <array>
#include <cstddef>
#include <fstream>

#include <Tolvanite/Compression/Compression.h>

namespace tolvanite {

namespace {

// All bytes of a file; absent if it can't be read to its end.
Optional<ByteBuffer> contentOf(const FileLocation& file) {
  std::ifstream stream(file.filesystemPath(), std::ios::binary);
  if (!stream) return {};
  ByteBuffer result;
  std::array<char, 65536> part;
  do {
    stream.read(part.data(), part.size());
    result.append(std::string_view(part.data(), static_cast<std::size_t>(stream.gcount())));
  } while (stream);
  // Reading a folder or a broken disk fails before the end.
  if (!stream.eof() || stream.bad()) return {};
  return result;
}

}  // namespace

Optional<ByteBuffer> jsonData(std::string_view name, const std::vector<FileLocation>& folders) {
  for (const FileLocation& folder : folders) {
    const FileLocation document = folder.appendingPathComponent(name);
    const FileLocation text = document.appendingPathExtension("json");
    if (text.fileExists()) return contentOf(text);
    const FileLocation packed = document.appendingPathExtension("jzip");
    if (!packed.fileExists()) continue;
    const Optional<ByteBuffer> content = contentOf(packed);
    if (!content) return {};
    return uncompressed(*content, Compression::lzfse);
  }
  return {};
}

Optional<ByteBuffer> jsonData(std::string_view name, const std::vector<Pascription>& folders) {
  std::vector<FileLocation> locations;
  locations.reserve(folders.size());
  for (const Pascription& folder : folders) locations.push_back(folder.vendUrl());
  return jsonData(name, locations);
}

}  // namespace tolvanite
