// Packs, unpacks and checks compressed JSON documents.
//
//   jzip pack settings.json              makes settings.jzip beside it
//   jzip unpack settings.jzip            makes settings.json
//   jzip check settings.jzip other.jzip  tells the sizes of those that are whole
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include <Tolvanite/Compression/Compression.h>
#include <Tolvanite/Frame/FileLocation.h>

#include "Files.h"
#include "Progress.h"

using namespace tolvanite;
using jzip::Failure;

namespace {

constexpr const char* usage =
    "jzip [--force] pack FILE.json...     compress into FILE.jzip\n"
    "jzip [--force] unpack FILE.jzip...   decompress into FILE.json\n"
    "jzip check FILE.jzip...              tell whether they can be read, and their sizes\n"
    "\n"
    "--force replaces files that are there already.\n"
    "Ends with 1 for a damaged document, 2 for a wrong call, 3 for a file that cannot be read or\n"
    "written.\n";

// A file of the extension that a command takes, and the one that it makes of it.
FileLocation counterpart(const FileLocation& file, const std::string& from, const std::string& to) {
  if (file.pathExtension() != from) {
    throw Failure{jzip::wrongUsage, file.path() + " does not end in ." + from};
  }
  return file.deletingPathExtension().appendingPathExtension(to);
}

ByteBuffer unpacked(const FileLocation& file, const ByteBuffer& content) {
  jzip::Progress progress("unpacking " + file.lastPathComponent(), content.count());
  Optional<ByteBuffer> text = uncompressed(content, Compression::lzfse, progress.block());
  if (!text) throw Failure{jzip::damaged, file.path() + " is damaged, or no such document"};
  return *std::move(text);
}

void tell(const FileLocation& file, const ByteBuffer& text, const ByteBuffer& packed) {
  std::printf("%s: %lld bytes of text in %lld", file.lastPathComponent().c_str(),
              static_cast<long long>(text.count()), static_cast<long long>(packed.count()));
  if (!text.isEmpty()) {  // a stream of nothing but its end is whole, too
    std::printf(", %.1f %%",
                100.0 * static_cast<double>(packed.count()) / static_cast<double>(text.count()));
  }
  std::printf("\n");
}

void pack(const FileLocation& file, bool isForced) {
  const FileLocation target = counterpart(file, "json", "jzip");
  const ByteBuffer text = jzip::contentOf(file.filesystemPath());
  jzip::Progress progress("packing " + file.lastPathComponent(), text.count());
  const Optional<ByteBuffer> packed = compressed(text, Compression::lzfse, progress.block());
  if (!packed) throw Failure{jzip::damaged, file.path() + " is empty"};
  jzip::writeFile(target.filesystemPath(), *packed, isForced);
  tell(target, text, *packed);
}

void unpack(const FileLocation& file, bool isForced) {
  const FileLocation target = counterpart(file, "jzip", "json");
  const ByteBuffer packed = jzip::contentOf(file.filesystemPath());
  const ByteBuffer text = unpacked(file, packed);
  jzip::writeFile(target.filesystemPath(), text, isForced);
  tell(target, text, packed);
}

void check(const FileLocation& file) {
  const ByteBuffer packed = jzip::contentOf(file.filesystemPath());
  tell(file, unpacked(file, packed), packed);
}

void run(const std::string& command, const FileLocation& file, bool isForced) {
  if (command == "pack") return pack(file, isForced);
  if (command == "unpack") return unpack(file, isForced);
  return check(file);
}

}  // namespace

int main(int count, char** arguments) {
  std::vector<std::string> words(arguments + 1, arguments + count);
  const bool isForced = std::erase(words, "--force") > 0;
  const bool isHelp = !words.empty() && (words[0] == "--help" || words[0] == "-h");
  if (isHelp) {
    std::cout << usage;
    return 0;
  }
  if (words.size() < 2 || (words[0] != "pack" && words[0] != "unpack" && words[0] != "check")) {
    std::cerr << usage;
    return jzip::wrongUsage;
  }
  // Every file is tried; the first failure decides how the program ends.
  int result = 0;
  for (std::size_t i = 1; i < words.size(); ++i) {
    try {
      run(words[0], FileLocation(words[i]), isForced);
    } catch (const Failure& failure) {
      std::cerr << "jzip: " << failure.message << '\n';
      if (result == 0) result = failure.exitCode;
    }
  }
  return result;
}
