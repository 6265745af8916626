// Coordinates that stand in a list: all cells of a size in random order, or a list of the caller's.
// Made by `MatrixSize::coordinateIterator_randomPrecalculated` and `coordinateIterator_array`.
#pragma once

#include <cstddef>
#include <source_location>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Shuffling.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>
#include <Tolvanite/Matrix/detail/PulledRange.h>

namespace tolvanite {

/// The cells in random order, all orders equally likely. The order is drawn, as `shuffle` draws,
/// and stored when the walk is made.
class RandomWalk : public detail::PulledRange<RandomWalk, MatrixCoordinate> {
 public:
  /// Over that many columns and rows; no cell if one of them is below 1. Linear in the cells, of
  /// which there may be 2^32 - 1.
  RandomWalk(Int width, Int height, std::source_location location = std::source_location::current())
      : width_(width) {
    if (width < 1 || height < 1) return;
    positions_.resize(static_cast<std::size_t>(checkedMultiply(width, height, location)));
    for (std::size_t i = 0; i < positions_.size(); ++i) positions_[i] = static_cast<Int>(i);
    shuffle(positions_, location);
  }

  /// Sets `coordinate` to the next one; false behind the last.
  bool pull(MatrixCoordinate& coordinate) {
    if (place_ == positions_.size()) return false;
    coordinate = detail::rowMajorCoordinate<MatrixCoordinate>(positions_[place_++], width_);
    return true;
  }

 private:
  Int width_;
  std::vector<Int> positions_;
  std::size_t place_ = 0;
};

/// The given coordinates in their order.
class GivenWalk : public detail::PulledRange<GivenWalk, MatrixCoordinate> {
 public:
  /// Over the first `width * height` coordinates; none if one of the sides is below 1. A list that
  /// is shorter is fatal when the walk runs past its end.
  GivenWalk(Int width, Int height, std::vector<MatrixCoordinate> coordinates,
            std::source_location location = std::source_location::current())
      : count_(width < 1 || height < 1 ? 0 : checkedMultiply(width, height, location)),
        coordinates_(std::move(coordinates)),
        location_(location) {}

  /// Sets `coordinate` to the next one; false behind the last.
  bool pull(MatrixCoordinate& coordinate) {
    if (place_ == count_) return false;
    const auto length = static_cast<Int>(coordinates_.size());
    if (place_ >= length) fatalIndexOutOfRange(place_, length, location_);
    coordinate = coordinates_[static_cast<std::size_t>(place_++)];
    return true;
  }

 private:
  Int count_;
  std::vector<MatrixCoordinate> coordinates_;
  std::source_location location_;
  Int place_ = 0;
};

}  // namespace tolvanite
