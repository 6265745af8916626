#pragma once

#include <string>

#include <Tolvanite/Compression/Compression.h>
#include <Tolvanite/Frame/Types.h>

namespace jzip {

// Shows on a terminal how far the work on a large file has come, in one line of standard error that
// is gone with this.
class Progress {
 public:
  Progress(std::string label, tolvanite::Int total);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  // What to hand to the work; empty where nothing is to be shown. Must not outlive this.
  tolvanite::CompressionProgress block();

 private:
  void show(tolvanite::Int taken);

  std::string label_;
  tolvanite::Int total_;
  tolvanite::Int shown_ = -1;  // percent
  bool isShown_;
};

}  // namespace jzip
