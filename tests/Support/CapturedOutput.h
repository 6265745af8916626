// The real standard output of the process, caught for as long as this lives.
//
//   CapturedOutput captured;
//   printLine("x");
//   EXPECT_EQ(captured.text(), "x\n");
#pragma once

#include <array>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#include <stdlib.h>
#include <unistd.h>

namespace tolvanite::testing {

class CapturedOutput {
 public:
  /// Catches `stream`, which is standard output or standard error.
  explicit CapturedOutput(std::FILE* stream = stdout)
      : stream_(stream), file_(std::tmpfile()), original_(::dup(::fileno(stream))) {
    if (file_ == nullptr || original_ < 0) throw std::runtime_error("cannot capture");
    std::fflush(stream_);
    ::dup2(::fileno(file_), ::fileno(stream_));
  }
  CapturedOutput(const CapturedOutput&) = delete;
  CapturedOutput& operator=(const CapturedOutput&) = delete;
  ~CapturedOutput() {
    std::fflush(stream_);
    ::dup2(original_, ::fileno(stream_));
    ::close(original_);
    std::fclose(file_);
  }

  /// Everything written until now.
  std::string text() const {
    std::fflush(stream_);
    std::string result;
    std::array<char, 4096> part{};
    while (true) {
      const ssize_t count =
          ::pread(::fileno(file_), part.data(), part.size(), static_cast<off_t>(result.size()));
      if (count <= 0) return result;
      result.append(part.data(), static_cast<std::size_t>(count));
    }
  }

  /// What was written once `part` is in it, or after ten seconds.
  std::string textContaining(std::string_view part) const {
    for (int i = 0; i < 1000 && text().find(part) == std::string::npos; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return text();
  }

 private:
  std::FILE* stream_;
  std::FILE* file_;
  int original_;
};

}  // namespace tolvanite::testing
