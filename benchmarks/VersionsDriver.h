#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Harness.h"
#include "Workload.h"

// Semantic versions: read from texts, and printed as such, each into a string of its own. Of ten,
// three have prerelease identifiers and one has metadata.
//
// A contender is a class with
//
//   struct Value                                    a version
//   static bool read(const std::string&, Value&)    false for what is no such text
//   static std::string print(const Value&)
//   static std::uint64_t patchOf(const Value&)
//   static std::size_t identifierCountOf(const Value&)
namespace bench {

inline constexpr std::size_t versionCount = 1'000'000;

inline std::vector<std::string> versionTexts() {
  SplitMix64 random(0x74);
  std::vector<std::string> texts(versionCount);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    std::string& text = texts[i];
    text = std::to_string(random.below(20)) + '.' + std::to_string(random.below(100)) + '.' +
           std::to_string(random.below(10'000));
    if (i % 10 < 3) text += '-' + random.word(5) + '.' + std::to_string(random.below(20));
    if (i % 10 == 2) text += "+build." + std::to_string(random.below(1'000'000'000));
  }
  return texts;
}

template <class Contender>
void readVersions(benchmark::State& state, const std::string& name) {
  const std::vector<std::string> texts = versionTexts();
  std::uint64_t check = 0;
  std::size_t read = 0;
  for ([[maybe_unused]] auto once : state) {
    check = read = 0;
    for (const std::string& text : texts) {
      typename Contender::Value value{};
      read += Contender::read(text, value) ? 1 : 0;
      check = check * 31 + Contender::patchOf(value) + Contender::identifierCountOf(value);
    }
    benchmark::DoNotOptimize(check);
  }
  requireSame<std::size_t>(name, "how many were read", read, texts.size());
  report(state, texts.size(), folded(check));
}

template <class Contender>
void printVersions(benchmark::State& state, const std::string& name) {
  const std::vector<std::string> texts = versionTexts();
  std::vector<typename Contender::Value> values(texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) Contender::read(texts[i], values[i]);
  std::size_t length = 0;
  for ([[maybe_unused]] auto once : state) {
    length = 0;
    for (const auto& value : values) length += Contender::print(value).size();
    benchmark::DoNotOptimize(length);
  }
  std::size_t same = 0;
  for (std::size_t i = 0; i < texts.size(); ++i) same += Contender::print(values[i]) == texts[i];
  requireSame<std::size_t>(name, "how many print back the same", same, texts.size());
  report(state, values.size(), folded(length));
}

template <class Contender>
bool registerVersions(const std::string& peer) {
  const std::string read = peer + "/read", print = peer + "/print";
  benchmark::RegisterBenchmark(read.c_str(), [=](benchmark::State& state) {
    readVersions<Contender>(state, read);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(print.c_str(), [=](benchmark::State& state) {
    printVersions<Contender>(state, print);
  })->Unit(benchmark::kMillisecond);
  return true;
}

}  // namespace bench
