#include <cstdio>
#include <utility>

#include <unistd.h>

#include "Progress.h"

namespace jzip {

using tolvanite::Int;

namespace {

// Smaller files are done before one could read the line.
constexpr Int leastTotal = 4'000'000;

}  // namespace

Progress::Progress(std::string label, Int total)
    : label_(std::move(label)),
      total_(total),
      isShown_(total >= leastTotal && ::isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
  if (shown_ >= 0) std::fputs("\r\033[K", stderr);
}

tolvanite::CompressionProgress Progress::block() {
  if (!isShown_) return {};
  return [this](Int taken) { show(taken); };
}

void Progress::show(Int taken) {
  const Int percent = taken * 100 / total_;
  if (percent == shown_) return;
  shown_ = percent;
  std::fprintf(stderr, "\r\033[K%s: %lld %%", label_.c_str(), static_cast<long long>(percent));
  std::fflush(stderr);
}

}  // namespace jzip
