#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Harness.h"
#include "Workload.h"

// Bits: algebra, counting and walking of sets of a fixed size, and arrays that grow bit by bit.
//
// A contender for sets is a class with
//
//   explicit Set(const std::vector<bool>&)
//   void operator&=(const Set&), |=, ^=     in place
//   std::uint64_t count() const             how many are set
//   std::uint64_t sumOfIndexes() const      over the set bits
//
// and one for arrays, which starts empty, with
//
//   void append(bool)
//   std::uint64_t count() const
namespace bench {

inline constexpr std::size_t setSize = 1'000'000;
inline constexpr std::size_t arraySize = 10'000'000;

inline std::vector<bool> randomBits(std::uint64_t seed, std::uint64_t oneIn) {
  SplitMix64 random(seed);
  std::vector<bool> bits(setSize);
  for (std::size_t i = 0; i < setSize; ++i) bits[i] = random.below(oneIn) == 0;
  return bits;
}

template <class Set, class Operation>
void combineSets(benchmark::State& state, Operation operation) {
  Set a(randomBits(0x11, 2));
  const Set b(randomBits(0x12, 2));
  operation(a, b);
  const std::uint64_t check = a.sumOfIndexes();
  for ([[maybe_unused]] auto once : state) {
    operation(a, b);
    benchmark::DoNotOptimize(a);
    benchmark::ClobberMemory();
  }
  report(state, setSize, folded(check));
}

template <class Set, class Question>
void askSet(benchmark::State& state, std::uint64_t seed, std::uint64_t oneIn, Question question) {
  Set set(randomBits(seed, oneIn));
  std::uint64_t answer = 0;
  for ([[maybe_unused]] auto once : state) {
    benchmark::DoNotOptimize(set);
    benchmark::DoNotOptimize(answer = question(set));
  }
  report(state, setSize, folded(answer));
}

template <class Array>
void appendBits(benchmark::State& state) {
  SplitMix64 random(0x14);
  std::vector<std::uint64_t> words(arraySize / 64);
  for (auto& word : words) word = random.next();
  std::uint64_t count = 0;
  for ([[maybe_unused]] auto once : state) {
    Array array;
    for (const std::uint64_t word : words) {
      for (unsigned i = 0; i < 64; ++i) array.append((word >> i & 1U) != 0);
    }
    benchmark::DoNotOptimize(array);
    state.PauseTiming();
    count = array.count();
    state.ResumeTiming();
  }
  report(state, words.size() * 64, folded(count));
}

template <class Set>
bool registerSets(const std::string& peer) {
  using State = benchmark::State;
  const auto add = [&](const std::string& row, auto body) {
    benchmark::RegisterBenchmark((peer + "/" + row).c_str(), body);
  };
  add("and", [](State& s) { combineSets<Set>(s, [](Set& a, const Set& b) { a &= b; }); });
  add("or", [](State& s) { combineSets<Set>(s, [](Set& a, const Set& b) { a |= b; }); });
  add("xor", [](State& s) { combineSets<Set>(s, [](Set& a, const Set& b) { a ^= b; }); });
  add("count", [](State& s) { askSet<Set>(s, 0x11, 2, [](const Set& a) { return a.count(); }); });
  for (const std::uint64_t oneIn : {2u, 100u}) {
    add("iterate_set/one_in=" + std::to_string(oneIn), [oneIn](State& s) {
      askSet<Set>(s, 0x13, oneIn, [](const Set& a) { return a.sumOfIndexes(); });
    });
  }
  return true;
}

template <class Array>
bool registerArrays(const std::string& peer) {
  benchmark::RegisterBenchmark((peer + "/append").c_str(), appendBits<Array>)
      ->Unit(benchmark::kMillisecond);
  return true;
}

}  // namespace bench
