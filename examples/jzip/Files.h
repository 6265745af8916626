#pragma once

#include <filesystem>
#include <string>

#include <Tolvanite/Frame/ByteBuffer.h>

namespace jzip {

// What ends the program: a line for standard error, and the exit code.
struct Failure {
  int exitCode;
  std::string message;
};

inline constexpr int damaged = 1;
inline constexpr int wrongUsage = 2;
inline constexpr int noFile = 3;

// The bytes of a file. Throws a Failure if it can't be read.
tolvanite::ByteBuffer contentOf(const std::filesystem::path& file);

// Writes a file, which is there whole or not at all. Throws a Failure if it can't be written, or if
// there is one already that `mayReplace` does not give up.
void writeFile(const std::filesystem::path& file, const tolvanite::ByteBuffer& content,
               bool mayReplace);

}  // namespace jzip
