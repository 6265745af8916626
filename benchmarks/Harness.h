#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>

// What the benchmark programs share: a clock around the timed part, a check that ends the program,
// and the registration of a benchmark that does its work once a repetition.
namespace bench {

class Stopwatch {
 public:
  double seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Ends the program when a contender did not do the work that it was timed for.
template <class Value>
void requireSame(const std::string& contender, const char* what, const Value& got,
                 const Value& wanted) {
  if (got == wanted) return;
  std::fprintf(stderr, "%s: wrong result, %s is %s where all must get %s\n", contender.c_str(),
               what, std::to_string(got).c_str(), std::to_string(wanted).c_str());
  std::exit(2);
}

// What one pass of a benchmark reports.
struct Pass {
  double seconds = 0;
  std::uint64_t operations = 1;
  std::uint32_t check = 0;
};

// Counters of a row: `ops` is the number of operations that one iteration's time stands for.
inline void report(benchmark::State& state, std::uint64_t operations, std::uint32_t check) {
  state.counters["ops"] = static_cast<double>(operations);
  state.counters["check"] = static_cast<double>(check);
}

// Registers a benchmark whose pass is run once a repetition and times its own middle part.
template <class Body>
void registerPass(const std::string& name, Body body) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [body = std::move(body)](benchmark::State& state) {
                                 for ([[maybe_unused]] auto once : state) {
                                   const Pass pass = body(state);
                                   state.SetIterationTime(pass.seconds);
                                   report(state, pass.operations, pass.check);
                                 }
                               })
      ->UseManualTime()
      ->Iterations(1)
      ->Unit(benchmark::kNanosecond);
}

}  // namespace bench
