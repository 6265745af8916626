#if defined(TOLVANITE_PEER_BOOST)

#include <cstddef>
#include <cstdint>
#include <vector>

#include <boost/gil.hpp>
#include <boost/multi_array.hpp>

#include "../GridDriver.h"

// Boost.GIL: a locator that steps in both directions, so that a turned view costs no copy.
// Boost.MultiArray: a const_multi_array_ref of the cells, and its index arithmetic.
namespace bench {
namespace {

namespace gil = boost::gil;

template <class View>
std::uint64_t visitRows(const View& view) {
  std::uint64_t mix = 0;
  for (std::ptrdiff_t r = 0; r < view.height(); ++r) {
    auto cell = view.row_begin(r);
    for (std::ptrdiff_t c = 0; c < view.width(); ++c, ++cell) {
      mix += grid::weighted((*cell)[0], r, c);
    }
  }
  return mix;
}

template <class View>
std::vector<std::int64_t> copyRows(const View& view) {
  std::vector<std::int64_t> result(static_cast<std::size_t>(gridSide * gridSide));
  std::size_t place = 0;
  for (std::ptrdiff_t r = 0; r < view.height(); ++r) {
    auto cell = view.row_begin(r);
    for (std::ptrdiff_t c = 0; c < view.width(); ++c, ++cell) result[place++] = (*cell)[0];
  }
  return result;
}

class Gil {
  using Cell = gil::pixel<std::int64_t, gil::gray_layout_t>;

  template <class Use>
  auto turned(Use use) const {
    const auto view =
        gil::interleaved_view(gridSide, gridSide, reinterpret_cast<const Cell*>(cells_.data()),
                              gridSide * sizeof(std::int64_t));
    switch (degrees_) {
      case 90:
        return use(gil::rotated90cw_view(view));
      case 180:
        return use(gil::rotated180_view(view));
      case 270:
        return use(gil::rotated90ccw_view(view));
      default:
        return use(view);
    }
  }

  std::vector<std::int64_t> cells_;
  int degrees_;

 public:
  Gil(const std::vector<std::int64_t>& cells, int degrees) : cells_(cells), degrees_(degrees) {}

  std::uint64_t visit() const {
    return turned([](const auto& view) { return visitRows(view); });
  }
  std::vector<std::int64_t> copy() const {
    return turned([](const auto& view) { return copyRows(view); });
  }
};

class MultiArray {
 public:
  MultiArray(const std::vector<std::int64_t>& cells, int degrees)
      : degrees_(degrees), cells_(boost::extents[gridSide][gridSide]) {
    cells_.assign(cells.begin(), cells.end());
  }

  std::uint64_t visit() const {
    std::uint64_t mix = 0;
    forEach([&](std::int64_t value, std::int64_t r, std::int64_t c) {
      mix += grid::weighted(value, r, c);
    });
    return mix;
  }
  std::vector<std::int64_t> copy() const {
    std::vector<std::int64_t> result(static_cast<std::size_t>(gridSide * gridSide));
    std::size_t place = 0;
    forEach([&](std::int64_t value, std::int64_t, std::int64_t) { result[place++] = value; });
    return result;
  }

 private:
  template <class Use>
  void forEach(Use use) const {
    constexpr std::int64_t last = gridSide - 1;
    switch (degrees_) {
      case 90:
        return forEach(use, [&](std::int64_t r, std::int64_t c) { return cells_[last - c][r]; });
      case 180:
        return forEach(use,
                       [&](std::int64_t r, std::int64_t c) { return cells_[last - r][last - c]; });
      case 270:
        return forEach(use, [&](std::int64_t r, std::int64_t c) { return cells_[c][last - r]; });
      default:
        return forEach(use, [&](std::int64_t r, std::int64_t c) { return cells_[r][c]; });
    }
  }
  template <class Use, class Cell>
  static void forEach(Use use, Cell cell) {
    for (std::int64_t r = 0; r < gridSide; ++r) {
      for (std::int64_t c = 0; c < gridSide; ++c) use(cell(r, c), r, c);
    }
  }

  int degrees_;
  boost::multi_array<std::int64_t, 2> cells_;
};

const bool registered =
    registerGrid<Gil>("boost_gil") && registerGrid<MultiArray>("boost_multi_array");

}  // namespace
}  // namespace bench

#endif
