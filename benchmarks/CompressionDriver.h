#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Harness.h"
#include "Records.h"
#include "Workload.h"

// Packs and unpacks a JSON text of 50 MB. A contender has `pack(text)`, which gives the packed
// bytes in something with a size, and `unpack(packed, size)`, which gives the text in new memory.
namespace bench {

inline const std::string& compressionText() {
  static const std::string text = recordsText(50'000'000);
  return text;
}

inline void reportSpeed(benchmark::State& state, double seconds, std::size_t packedSize) {
  const auto textSize = static_cast<double>(compressionText().size());
  state.counters["MB/s"] = textSize / 1e6 / seconds;
  state.counters["packed"] = static_cast<double>(packedSize) / textSize;
}

// An operation is a megabyte of text.
template <class Contender>
bool registerCompression(const std::string& name) {
  constexpr std::uint64_t operations = 50;
  registerPass(name + "/pack", [](benchmark::State& state) {
    const std::string& text = compressionText();
    const Stopwatch clock;
    const auto packed = Contender::pack(text);
    const double seconds = clock.seconds();
    reportSpeed(state, seconds, packed.size());
    return Pass{seconds, operations, 0};
  });
  registerPass(name + "/unpack", [name](benchmark::State& state) {
    const std::string& text = compressionText();
    static const auto packed = Contender::pack(text);
    const Stopwatch clock;
    const auto unpacked = Contender::unpack(packed, text.size());
    const double seconds = clock.seconds();
    const std::string_view bytes(reinterpret_cast<const char*>(unpacked.data()), unpacked.size());
    requireSame(name, "whether the text is back", bytes == text, true);
    reportSpeed(state, seconds, packed.size());
    return Pass{seconds, operations, 0};
  });
  return true;
}

}  // namespace bench
