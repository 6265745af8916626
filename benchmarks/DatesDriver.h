#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "Harness.h"
#include "Workload.h"

// Times of the years 1970 to 2105 in milliseconds: written as "2018-02-03T10:00:00.123Z", each into
// a string of its own, and read from such texts.
//
// A contender is a class with
//
//   std::string write(std::int64_t milliseconds)
//   std::int64_t read(const std::string&)           -1 for what is no such text
namespace bench {

inline constexpr std::size_t dateCount = 1'000'000;

inline std::vector<std::int64_t> dateTimes() {
  SplitMix64 random(0x77);
  std::vector<std::int64_t> times(dateCount);
  for (auto& time : times) time = static_cast<std::int64_t>(random.next() >> 22U);
  return times;
}

// The text that all must write, by the system's calendar.
inline std::string dateText(std::int64_t milliseconds) {
  const std::time_t seconds = milliseconds / 1000;
  std::tm parts{};
  ::gmtime_r(&seconds, &parts);
  char text[64];
  const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
  std::snprintf(text + length, sizeof text - length, ".%03dZ",
                static_cast<int>(milliseconds % 1000));
  return text;
}

template <class Contender>
void writeDates(benchmark::State& state, const std::string& name) {
  const std::vector<std::int64_t> times = dateTimes();
  Contender contender;
  std::size_t length = 0;
  for ([[maybe_unused]] auto once : state) {
    length = 0;
    for (const std::int64_t time : times) length += contender.write(time).size();
    benchmark::DoNotOptimize(length);
  }
  std::size_t same = 0;
  for (const std::int64_t time : times) same += contender.write(time) == dateText(time) ? 1 : 0;
  requireSame<std::size_t>(name, "how many were written right", same, times.size());
  report(state, times.size(), folded(length));
}

template <class Contender>
void readDates(benchmark::State& state, const std::string& name) {
  const std::vector<std::int64_t> times = dateTimes();
  std::vector<std::string> texts;
  for (const std::int64_t time : times) texts.push_back(dateText(time));
  Contender contender;
  std::uint64_t check = 0;
  for ([[maybe_unused]] auto once : state) {
    check = 0;
    for (const std::string& text : texts) {
      check = check * 31 + static_cast<std::uint64_t>(contender.read(text));
    }
    benchmark::DoNotOptimize(check);
  }
  std::size_t same = 0;
  for (std::size_t i = 0; i < times.size(); ++i) same += contender.read(texts[i]) == times[i];
  requireSame<std::size_t>(name, "how many were read right", same, times.size());
  report(state, times.size(), folded(check));
}

template <class Contender>
bool registerDates(const std::string& peer) {
  const std::string write = peer + "/write", read = peer + "/read";
  benchmark::RegisterBenchmark(write.c_str(), [=](benchmark::State& state) {
    writeDates<Contender>(state, write);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(read.c_str(), [=](benchmark::State& state) {
    readDates<Contender>(state, read);
  })->Unit(benchmark::kMillisecond);
  return true;
}

}  // namespace bench
