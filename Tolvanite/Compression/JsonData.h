// Finds a JSON document by its name: as text in NAME.json, or compressed in NAME.jzip.
//
//   const Optional<ByteBuffer> text =
//       jsonData("settings", {Pascription("$ASMBI$"), Pascription("$MBRD$/defaults")});
//
// A ".jzip" file is an LZFSE stream of the text and nothing else. A host writes one with
// `compressed(text, Compression::lzfse)`.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include <Tolvanite/Foundation/Pascription.h>
#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/FileLocation.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The text of the first document of that name. An earlier folder wins over a later one, and within
/// a folder ".json" over ".jzip". The extension is put behind the whole name: "doc.v2" is looked
/// for as "doc.v2.json". Absent if no folder has either, and also if the first one found can't be
/// read or decompressed; then the folders behind it are not looked at.
TOLVANITE_EXPORT Optional<ByteBuffer> jsonData(std::string_view name,
                                               const std::vector<FileLocation>& folders);

/// The same for folders as listed, and for none.
inline Optional<ByteBuffer> jsonData(std::string_view name,
                                     std::initializer_list<FileLocation> folders) {
  return jsonData(name, std::vector<FileLocation>(folders));
}

/// The same with folders that are told symbolically; none is created. Fatal if one can't be
/// resolved.
TOLVANITE_EXPORT Optional<ByteBuffer> jsonData(std::string_view name,
                                               const std::vector<Pascription>& folders);

}  // namespace tolvanite
