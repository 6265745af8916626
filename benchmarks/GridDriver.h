#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Harness.h"
#include "Workload.h"

// Grid: 2000 x 2000 integers, read through a view that is turned clockwise. Turned by 90, the cell
// in row r and column c is that in row 1999 - c and column r of the grid.
//
// A contender is a class with
//
//   Contender(const std::vector<std::int64_t>& cells, int degrees)
//   std::uint64_t visit()                 the sum of value * (31 * row + column) over the turned
//   grid std::vector<std::int64_t> copy()      the turned grid, row by row
//
// A walker is a class with
//
//   static constexpr name                 of the walk
//   static std::uint64_t walk(std::int64_t side)    the hash of the coordinates of a square, in
//   order
namespace bench {

inline constexpr std::int64_t gridSide = 2000;
inline constexpr std::int64_t walkSide = 1000;

namespace grid {

inline const std::vector<std::int64_t>& cells() {
  static const std::vector<std::int64_t> result = [] {
    SplitMix64 random(0x21);
    std::vector<std::int64_t> drawn(gridSide * gridSide);
    for (std::int64_t& cell : drawn) cell = static_cast<std::int64_t>(random.next());
    return drawn;
  }();
  return result;
}

inline std::uint64_t weighted(std::int64_t value, std::int64_t row, std::int64_t column) {
  return static_cast<std::uint64_t>(value) * static_cast<std::uint64_t>(31 * row + column);
}

inline std::uint64_t mixOf(const std::vector<std::int64_t>& turned) {
  std::uint64_t mix = 0;
  for (std::int64_t place = 0; place < gridSide * gridSide; ++place) {
    const std::int64_t value = turned[static_cast<std::size_t>(place)];
    mix += weighted(value, place / gridSide, place % gridSide);
  }
  return mix;
}

// The grid turned by the definition, for the check of every contender.
inline std::vector<std::int64_t> turned(int degrees) {
  std::vector<std::int64_t> from = cells();
  for (int turn = 0; turn < degrees / 90; ++turn) {
    std::vector<std::int64_t> to(from.size());
    for (std::int64_t r = 0; r < gridSide; ++r) {
      for (std::int64_t c = 0; c < gridSide; ++c) {
        to[static_cast<std::size_t>(r * gridSide + c)] =
            from[static_cast<std::size_t>((gridSide - 1 - c) * gridSide + r)];
      }
    }
    from = to;
  }
  return from;
}

}  // namespace grid

template <class Contender>
bool registerGrid(const std::string& peer) {
  for (const int degrees : {0, 90, 180, 270}) {
    const std::string suffix = "/turned=" + std::to_string(degrees);
    const std::string visit = peer + "/visit" + suffix;
    benchmark::RegisterBenchmark(visit.c_str(), [=](benchmark::State& state) {
      Contender contender(grid::cells(), degrees);
      std::uint64_t mix = 0;
      for ([[maybe_unused]] auto once : state) {
        mix = contender.visit();
        benchmark::DoNotOptimize(std::as_const(mix));
      }
      requireSame(visit, "the mix", mix, grid::mixOf(grid::turned(degrees)));
      report(state, gridSide * gridSide, folded(mix));
    });
    const std::string copy = peer + "/copy" + suffix;
    benchmark::RegisterBenchmark(copy.c_str(), [=](benchmark::State& state) {
      Contender contender(grid::cells(), degrees);
      std::vector<std::int64_t> result;
      for ([[maybe_unused]] auto once : state) {
        result = contender.copy();
        benchmark::DoNotOptimize(result.data());
        benchmark::ClobberMemory();
      }
      requireSame(copy, "whether the copy is right", result == grid::turned(degrees), true);
      report(state, gridSide * gridSide, folded(grid::mixOf(result)));
    });
  }
  return true;
}

// Hashes coordinates in their order.
class WalkHash {
 public:
  void add(std::int64_t x, std::int64_t y) {
    hash_.add(static_cast<std::uint64_t>(y * walkSide + x));
  }
  std::uint64_t value() const { return hash_.value(); }

 private:
  OrderHash hash_;
};

template <class Walker>
bool registerWalk(const std::string& peer) {
  const std::string name = peer + "/walk/" + Walker::name;
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    std::uint64_t hash = 0;
    std::int64_t side = walkSide;
    for ([[maybe_unused]] auto once : state) {
      benchmark::DoNotOptimize(side);
      hash = Walker::walk(side);
      benchmark::DoNotOptimize(hash);
    }
    report(state, walkSide * walkSide, folded(hash));
  });
  return true;
}

}  // namespace bench
