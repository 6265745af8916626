#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "Harness.h"
#include "Workload.h"

// Values of 128 bits: read from texts of 32 hexadecimal digits, and printed as such, each into a
// string of its own.
//
// A contender is a class with
//
//   struct Value                                    low and high, 64 bits each
//   static bool read(const std::string&, Value&)    false for what is no such text
//   static std::string print(const Value&)
namespace bench {

inline constexpr std::size_t valueCount = 1'000'000;

inline std::vector<std::pair<std::uint64_t, std::uint64_t>> valueWords() {
  SplitMix64 random(0x31);
  std::vector<std::pair<std::uint64_t, std::uint64_t>> words(valueCount);
  for (auto& [low, high] : words) {
    low = random.next();
    high = random.next();
  }
  return words;
}

template <class Contender>
void readValues(benchmark::State& state, const std::string& name) {
  std::vector<std::string> texts;
  for (const auto& [low, high] : valueWords()) {
    char text[33];
    std::snprintf(text, sizeof text, "%016llx%016llx", static_cast<unsigned long long>(high),
                  static_cast<unsigned long long>(low));
    texts.emplace_back(text);
  }
  std::uint64_t check = 0;
  std::size_t read = 0;
  for ([[maybe_unused]] auto once : state) {
    check = read = 0;
    for (const std::string& text : texts) {
      typename Contender::Value value{};
      read += Contender::read(text, value) ? 1 : 0;
      check = check * 31 + (value.low ^ value.high);
    }
    benchmark::DoNotOptimize(check);
  }
  requireSame<std::size_t>(name, "how many were read", read, texts.size());
  report(state, texts.size(), folded(check));
}

template <class Contender>
void printValues(benchmark::State& state) {
  std::vector<typename Contender::Value> values;
  for (const auto& [low, high] : valueWords()) values.push_back({low, high});
  std::uint64_t check = 0;
  for ([[maybe_unused]] auto once : state) {
    check = 0;
    for (const auto& value : values) {
      const std::string text = Contender::print(value);
      check = check * 31 + static_cast<unsigned char>(text[check % 32]) + text.size();
    }
    benchmark::DoNotOptimize(check);
  }
  report(state, values.size(), folded(check));
}

template <class Contender>
bool registerValues(const std::string& peer) {
  const std::string name = peer + "/read";
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    readValues<Contender>(state, name);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark((peer + "/print").c_str(), printValues<Contender>)
      ->Unit(benchmark::kMillisecond);
  return true;
}

}  // namespace bench
