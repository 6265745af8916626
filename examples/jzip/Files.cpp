#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

#include "Files.h"

namespace jzip {

using tolvanite::ByteBuffer;

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const char* what, const fs::path& file, const std::string& reason) {
  throw Failure{noFile, std::string(what) + " " + file.string() + ": " + reason};
}

}  // namespace

ByteBuffer contentOf(const fs::path& file) {
  std::error_code code;
  if (fs::is_directory(file, code)) fail("cannot read", file, "it is a folder");
  std::ifstream stream(file, std::ios::binary);
  if (!stream) fail("cannot read", file, std::strerror(errno));
  ByteBuffer result;
  const auto size = fs::file_size(file, code);
  if (!code) result.resize(static_cast<tolvanite::Int>(size));
  stream.read(reinterpret_cast<char*>(result.data()), static_cast<std::streamsize>(result.size()));
  if (stream.gcount() != static_cast<std::streamsize>(result.size())) {
    fail("cannot read", file, "it ends early");
  }
  return result;
}

void writeFile(const fs::path& file, const ByteBuffer& content, bool mayReplace) {
  if (!mayReplace && fs::exists(file)) fail("will not replace", file, "--force does");
  fs::path part = file;
  part += ".part";
  std::ofstream stream(part, std::ios::binary);
  stream << content.text();
  stream.close();
  std::error_code code;
  if (stream) {
    fs::rename(part, file, code);
    if (!code) return;
  }
  const std::string reason = code ? code.message() : std::strerror(errno);
  fs::remove(part, code);
  fail("cannot write", file, reason);
}

}  // namespace jzip
