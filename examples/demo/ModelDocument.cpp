#include <fstream>
#include <utility>
#include <vector>

#include <Tolvanite/Compression/Compression.h>
#include <Tolvanite/Compression/JsonData.h>
#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/JsonValueMapping.h>
#include <Tolvanite/Json/JsonWriter.h>

#include "ModelDocument.h"
#include "Printing.h"

namespace demo {

using tolvanite::ByteBuffer;
using tolvanite::Compression;
using tolvanite::Json;
using tolvanite::Pascription;

Pascription documentFolder() { return Pascription("$CACHES$/tolvanite-demo"); }

Pascription ModelDocument::pascription() const {
  Pascription result = documentFolder();
  result.components.push_back(name + (isCompressed ? ".jzip" : ".json"));
  return result;
}

StoredDocument store(const Files& files, const ModelDocument& document) {
  const ByteBuffer text = tolvanite::JsonWriter::dataFrom(tolvanite::makeJsonNsArray(files));
  const ByteBuffer content =
      document.isCompressed ? *tolvanite::compressed(text, Compression::lzfse) : text;
  documentFolder().vendUrl(nullptr, /*createDirIfNonExistant=*/true);
  const auto location = document.pascription().vendUrl();
  std::ofstream file(location.filesystemPath(), std::ios::binary);
  file << content.text();
  file.close();
  if (!file) throw tolvanite::Error("cannot write " + printable(location.path()));
  return {location, text.count(), content.count()};
}

std::shared_ptr<Files> load(const ModelDocument& document) {
  const auto fail = [&](std::string_view what) -> tolvanite::Error {
    return tolvanite::Error("the document " + document.name + ' ' + std::string(what));
  };
  // Finds the one of either extension, and decompresses by that.
  const auto data = tolvanite::jsonData(document.name, std::vector{documentFolder()});
  if (data.isNone()) throw fail("cannot be read");
  const Json json = Json::fromData(*data);
  if (json.type() != Json::JsonType::array) throw fail("is no list");
  std::vector<FileRecord> records;
  for (const auto& [index, record] : json) {
    auto file = FileRecord::fromJson(record);
    if (file.isNone()) throw fail("has no file at " + index);
    records.push_back(*std::move(file));
  }
  auto files = Files::make();
  files->appendMultiple(std::move(records));
  return files;
}

}  // namespace demo
