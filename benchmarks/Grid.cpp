#include <cstddef>
#include <cstdint>
#include <vector>

#include <Tolvanite/Matrix/Matrix.h>
#include <Tolvanite/Matrix/MatrixSize.h>
#include <Tolvanite/Matrix/TransformationMatrix.h>

#include "GridDriver.h"

namespace bench {
namespace {

using tolvanite::Int;
using tolvanite::MatrixSize;

tolvanite::Matrix<std::int64_t> matrixOf(const std::vector<std::int64_t>& cells, int degrees) {
  using Direction = tolvanite::TransformationMatrix::Direction;
  tolvanite::Matrix<std::int64_t> matrix(gridSide, gridSide);
  matrix.fillWithPattern(cells);
  const Direction direction = degrees == 90    ? Direction::left
                              : degrees == 180 ? Direction::leftLeft
                              : degrees == 270 ? Direction::right
                                               : Direction::nune;
  matrix.setTransform(
      tolvanite::TransformationMatrix::makeDirection(direction, matrix.originalSize()));
  return matrix;
}

class Turned {
 public:
  Turned(const std::vector<std::int64_t>& cells, int degrees) : matrix_(matrixOf(cells, degrees)) {}

 protected:
  const MatrixSize& size() const { return matrix_.size(); }

  // A matrix that is only read, as one that was passed to a view is.
  const tolvanite::Matrix<std::int64_t> matrix_;
};

// Row after row. Each cell is asked whether it holds a value.
class ByRows : public Turned {
 public:
  using Turned::Turned;

  std::uint64_t visit() const {
    std::uint64_t mix = 0;
    Int y = 0;
    for (const auto& row : matrix_.rows()) {
      Int x = 0;
      for (const auto& cell : row) {
        if (cell.isSome()) mix += grid::weighted(*cell, y, x);
        ++x;
      }
      ++y;
    }
    return mix;
  }

  std::vector<std::int64_t> copy() const {
    std::vector<std::int64_t> result(static_cast<std::size_t>(size().count()));
    std::size_t place = 0;
    for (const auto& row : matrix_.rows()) {
      for (const auto& cell : row) result[place++] = cell.value_or(0);
    }
    return result;
  }
};

// By a subscript for each cell, which tests its coordinate.
class ByCells : public Turned {
 public:
  using Turned::Turned;

  std::uint64_t visit() const {
    std::uint64_t mix = 0;
    for (Int y = 0; y < size().height; ++y) {
      for (Int x = 0; x < size().width; ++x) {
        const auto cell = matrix_[{x, y}];
        if (cell.isSome()) mix += grid::weighted(*cell, y, x);
      }
    }
    return mix;
  }

  std::vector<std::int64_t> copy() const {
    std::vector<std::int64_t> result(static_cast<std::size_t>(size().count()));
    std::size_t place = 0;
    for (Int y = 0; y < size().height; ++y) {
      for (Int x = 0; x < size().width; ++x) result[place++] = matrix_[{x, y}].value_or(0);
    }
    return result;
  }
};

// By a subscript for each coordinate of the ordered walk.
class ByWalk : public Turned {
 public:
  using Turned::Turned;

  std::uint64_t visit() const {
    std::uint64_t mix = 0;
    for (const auto place : size().coordinateIterator()) {
      const auto cell = matrix_[place];
      if (cell.isSome()) mix += grid::weighted(*cell, place.y, place.x);
    }
    return mix;
  }

  std::vector<std::int64_t> copy() const {
    std::vector<std::int64_t> result(static_cast<std::size_t>(size().count()));
    std::size_t index = 0;
    for (const auto place : size().coordinateIterator()) {
      result[index++] = matrix_[place].value_or(0);
    }
    return result;
  }
};

template <class Walk>
std::uint64_t hashOf(Walk walk) {
  WalkHash hash;
  for (const auto place : walk) hash.add(place.x, place.y);
  return hash.value();
}

struct Ordered {
  static constexpr const char* name = "ordered";
  static std::uint64_t walk(std::int64_t side) {
    return hashOf(MatrixSize(side, side).coordinateIterator());
  }
};

struct Checkered {
  static constexpr const char* name = "checkered";
  static std::uint64_t walk(std::int64_t side) {
    return hashOf(MatrixSize(side, side).coordinateIterator_checkered());
  }
};

struct Spiral {
  static constexpr const char* name = "spiral";
  static std::uint64_t walk(std::int64_t side) {
    return hashOf(MatrixSize(side, side).coordinateIterator_spiral());
  }
};

const bool registered =
    registerGrid<ByRows>("tolvanite") && registerGrid<ByCells>("tolvanite_cells") &&
    registerGrid<ByWalk>("tolvanite_walk") && registerWalk<Ordered>("tolvanite") &&
    registerWalk<Checkered>("tolvanite") && registerWalk<Spiral>("tolvanite");

}  // namespace
}  // namespace bench
