#include <fstream>
#include <string>

#include <fmt/format.h>

#include <Tolvanite/Foundation/Pascription.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/TextForm.h>

#include "Listing.h"
#include "Printing.h"

namespace demo {

using tolvanite::FileLocation;
using tolvanite::Pascription;

static std::string lineOf(const FileRecord& file) {
  return fmt::format("{}\t{}\t{}\t{}", file.size, textForm(file.modified), nameOf(file.kind),
                     printable(file.path));
}

FileLocation writeListing(const FileView& view) {
  // What can be made anew at any time belongs into the caches. The folder is made if it is missing.
  const FileLocation folder = Pascription("$CACHES$/tolvanite-demo").vendUrl(nullptr, true);
  FileLocation location = folder.appendingPathComponent("listing.txt");
  std::ofstream stream(location.filesystemPath(), std::ios::binary);
  for (const FileRecord& file : view) stream << lineOf(file) << '\n';
  stream.close();
  if (!stream) throw tolvanite::Error("\"" + location.path() + "\" cannot be written");
  return location;
}

bool listingEquals(const FileLocation& location, const FileView& view) {
  std::ifstream stream(location.filesystemPath(), std::ios::binary);
  std::string line;
  for (const FileRecord& file : view) {
    if (!std::getline(stream, line) || line != lineOf(file)) return false;
  }
  return !stream.fail() && !std::getline(stream, line);
}

}  // namespace demo
