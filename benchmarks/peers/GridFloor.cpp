#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "../GridDriver.h"

// Floors of Grid: the index arithmetic by hand, and the same behind a std::function, as a view that
// is chosen at run time would have it. The walks as plain loops.
namespace bench {
namespace {

// Where the turned cell (r, c) lies: first + r * rowStep + c * columnStep.
struct Steps {
  std::int64_t first;
  std::int64_t rowStep;
  std::int64_t columnStep;
};

Steps stepsOf(int degrees) {
  constexpr std::int64_t n = gridSide;
  switch (degrees) {
    case 90:
      return {(n - 1) * n, 1, -n};
    case 180:
      return {n * n - 1, -n, -1};
    case 270:
      return {n - 1, -1, n};
    default:
      return {0, n, 1};
  }
}

class ByIndex {
 public:
  ByIndex(const std::vector<std::int64_t>& cells, int degrees)
      : cells_(cells), steps_(stepsOf(degrees)) {}

  std::uint64_t visit() const {
    std::uint64_t mix = 0;
    for (std::int64_t r = 0; r < gridSide; ++r) {
      std::int64_t at = steps_.first + r * steps_.rowStep;
      for (std::int64_t c = 0; c < gridSide; ++c, at += steps_.columnStep) {
        mix += grid::weighted(cells_[static_cast<std::size_t>(at)], r, c);
      }
    }
    return mix;
  }

  std::vector<std::int64_t> copy() const {
    std::vector<std::int64_t> result(cells_.size());
    std::size_t place = 0;
    for (std::int64_t r = 0; r < gridSide; ++r) {
      std::int64_t at = steps_.first + r * steps_.rowStep;
      for (std::int64_t c = 0; c < gridSide; ++c, at += steps_.columnStep) {
        result[place++] = cells_[static_cast<std::size_t>(at)];
      }
    }
    return result;
  }

 private:
  std::vector<std::int64_t> cells_;
  Steps steps_;
};

class ByFunction {
 public:
  ByFunction(const std::vector<std::int64_t>& cells, int degrees)
      : cell_([cells, steps = stepsOf(degrees)](std::int64_t r, std::int64_t c) {
          return cells[static_cast<std::size_t>(steps.first + r * steps.rowStep +
                                                c * steps.columnStep)];
        }) {}

  std::uint64_t visit() const {
    std::uint64_t mix = 0;
    for (std::int64_t r = 0; r < gridSide; ++r) {
      for (std::int64_t c = 0; c < gridSide; ++c) mix += grid::weighted(cell_(r, c), r, c);
    }
    return mix;
  }

  std::vector<std::int64_t> copy() const {
    std::vector<std::int64_t> result(static_cast<std::size_t>(gridSide * gridSide));
    std::size_t place = 0;
    for (std::int64_t r = 0; r < gridSide; ++r) {
      for (std::int64_t c = 0; c < gridSide; ++c) result[place++] = cell_(r, c);
    }
    return result;
  }

 private:
  std::function<std::int64_t(std::int64_t, std::int64_t)> cell_;
};

struct Ordered {
  static constexpr const char* name = "ordered";
  static std::uint64_t walk(std::int64_t side) {
    WalkHash hash;
    for (std::int64_t y = 0; y < side; ++y) {
      for (std::int64_t x = 0; x < side; ++x) hash.add(x, y);
    }
    return hash.value();
  }
};

struct Checkered {
  static constexpr const char* name = "checkered";
  static std::uint64_t walk(std::int64_t side) {
    WalkHash hash;
    for (std::int64_t sweep = 0; sweep < 3; ++sweep) {
      for (std::int64_t y = 0; y < side; ++y) {
        for (std::int64_t x = (sweep + y) % 3; x < side; x += 3) hash.add(x, y);
      }
    }
    return hash.value();
  }
};

struct Spiral {
  static constexpr const char* name = "spiral";
  static std::uint64_t walk(std::int64_t side) {
    WalkHash hash;
    for (std::int64_t low = 0, high = side - 1; low <= high; ++low, --high) {
      for (std::int64_t x = low; x <= high; ++x) hash.add(x, low);
      for (std::int64_t y = low + 1; y <= high; ++y) hash.add(high, y);
      for (std::int64_t x = high - 1; x >= low; --x) hash.add(x, high);
      for (std::int64_t y = high - 1; y > low; --y) hash.add(low, y);
    }
    return hash.value();
  }
};

const bool registered =
    registerGrid<ByIndex>("floor_index") && registerGrid<ByFunction>("std_function") &&
    registerWalk<Ordered>("floor_index") && registerWalk<Checkered>("floor_index") &&
    registerWalk<Spiral>("floor_index");

}  // namespace
}  // namespace bench
