// The model on disk: a JSON document, as text in NAME.json or compressed in NAME.jzip.
#pragma once

#include <memory>
#include <string>

#include <Tolvanite/DataStructures/Kerray.h>
#include <Tolvanite/Foundation/Pascription.h>
#include <Tolvanite/Frame/FileLocation.h>

#include "FileRecord.h"

namespace demo {

using Files = tolvanite::Kerray<FileRecord>;

/// A document by its name, with neither folder nor extension.
struct ModelDocument {
  std::string name;
  bool isCompressed = false;

  tolvanite::Pascription pascription() const;
};

/// Where documents are: what can be made anew at any time belongs into the caches.
tolvanite::Pascription documentFolder();

/// What was written.
struct StoredDocument {
  tolvanite::FileLocation location;
  Int textSize = 0;  // in bytes, before it was compressed
  Int fileSize = 0;
};

/// Writes the files, in their order. Throws a tolvanite::Error.
StoredDocument store(const Files& files, const ModelDocument& document);

/// The files of a document. Throws a tolvanite::Error if it can't be read or is of another kind.
std::shared_ptr<Files> load(const ModelDocument& document);

}  // namespace demo
