#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "Harness.h"

// The workloads of Random. A contender is made with the seed 42 and offers some of
//   std::uint64_t word();
//   std::uint64_t upTo99();                        0 to 99, both included
//   void fill(std::byte* bytes, std::size_t size);
namespace bench {

inline constexpr std::uint64_t commonSeed = 42;
inline constexpr std::uint64_t draws = 1'000'000;
inline constexpr std::size_t fillSize = 1 << 20;

// Fills bytes with the words of a generator, by the plain loop that a user would write.
template <class Generator>
void fillWithWords(Generator& generator, std::byte* bytes, std::size_t size) {
  for (std::size_t place = 0; place < size; place += 8) {
    const std::uint64_t word = generator();
    std::memcpy(bytes + place, &word, 8);
  }
}

template <class Contender>
void drawWords(benchmark::State& state) {
  Contender contender;
  for ([[maybe_unused]] auto once : state) {
    std::uint64_t all = 0;
    for (std::uint64_t i = 0; i < draws; ++i) all ^= contender.word();
    benchmark::DoNotOptimize(all);
  }
  report(state, draws, 0);
}

template <class Draw>
void drawBounded(benchmark::State& state, const std::string& name, Draw draw) {
  double mean = 0;
  for ([[maybe_unused]] auto once : state) {
    std::uint64_t sum = 0;
    for (std::uint64_t i = 0; i < draws; ++i) sum += draw();
    benchmark::DoNotOptimize(sum);
    mean = static_cast<double>(sum) / static_cast<double>(draws);
  }
  requireSame(name, "that the mean is off by more than 0.2", std::abs(mean - 49.5) > 0.2, false);
  report(state, draws, 0);
}

template <class Contender>
void fillBytes(benchmark::State& state, const std::string& name) {
  Contender contender;
  std::vector<std::byte> bytes(fillSize);
  for ([[maybe_unused]] auto once : state) {
    contender.fill(bytes.data(), bytes.size());
    benchmark::DoNotOptimize(bytes.data());
    benchmark::ClobberMemory();
  }
  std::uint64_t bits = 0;
  for (const std::byte byte : bytes)
    bits += static_cast<std::uint64_t>(std::popcount(static_cast<unsigned>(byte)));
  const double share = static_cast<double>(bits) / static_cast<double>(8 * fillSize);
  requireSame(name, "that half of the bits are set", std::abs(share - 0.5) < 0.001, true);
  report(state, fillSize, 0);
}

template <class Contender>
bool registerRandom(const std::string& peer) {
  if constexpr (requires(Contender c) { c.word(); }) {
    benchmark::RegisterBenchmark((peer + "/words64").c_str(), drawWords<Contender>);
  }
  if constexpr (requires(Contender c) { c.upTo99(); }) {
    const std::string name = peer + "/bounded_0_99";
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
      Contender contender;
      drawBounded(state, name, [&] { return static_cast<std::uint64_t>(contender.upTo99()); });
    });
  }
  if constexpr (requires(Contender c, std::byte* bytes) { c.fill(bytes, fillSize); }) {
    const std::string name = peer + "/fill_1MiB";
    benchmark::RegisterBenchmark(
        name.c_str(), [=](benchmark::State& state) { fillBytes<Contender>(state, name); });
  }
  return true;
}

}  // namespace bench
