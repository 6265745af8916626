// Where the visible cells of a matrix lie in its storage: sizes and transformations, without cells.
#pragma once

#include <cstdint>
#include <source_location>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/MatrixSize.h>
#include <Tolvanite/Matrix/TransformationMatrix.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite::detail {

/// The storage indexes of a line of cells: `first`, `first + step`, ... `count` of them.
struct LineOfIndexes {
  Int first = 0;
  Int step = 1;
  Int count = 0;
};

/// The visible cell (x, y) lies at index `y' * originalSize.width + x'`, where (x', y') is (x, y)
/// under the inverse transformation.
///
/// As that index is linear in x and y, it is computed with two steps and a start that are derived
/// once. All visible cells have indexes without overflow if those in the corners have; of a
/// transformation that leads a corner beyond the integers no cell can be accessed at all.
class MatrixLayout {
 public:
  MatrixLayout() = default;
  TOLVANITE_EXPORT MatrixLayout(MatrixSize originalSize, std::source_location location);

  const MatrixSize& originalSize() const { return originalSize_; }
  const MatrixSize& size() const { return size_; }
  const TransformationMatrix& transform() const { return transform_; }
  const TransformationMatrix& inverseTransform() const { return inverseTransform_; }

  /// A transformation without inverse is fatal.
  TOLVANITE_EXPORT void setTransform(const TransformationMatrix& transform,
                                     std::source_location location);

  /// The storage index of a cell. A coordinate outside of the visible size is fatal, and so is one
  /// that a transformation leads out of the storage.
  Int storageIndex(MatrixCoordinate coordinate, std::source_location location) const {
    // Nothing that returns is called here: so loops over cells keep the fields in registers.
    if (isBeyond(coordinate.x, size_.width) || isBeyond(coordinate.y, size_.height)) [[unlikely]] {
      fail(coordinate, location);
    }
    const Int index = first_ + coordinate.x * columnStep_ + coordinate.y * rowStep_;
    if (isBeyond(index, limit_)) [[unlikely]]
      fail(coordinate, location);
    return index;
  }

  /// The storage indexes of a visible row or column, which must lie within the storage.
  /// @{
  TOLVANITE_EXPORT LineOfIndexes row(Int y, std::source_location location) const;
  TOLVANITE_EXPORT LineOfIndexes column(Int x, std::source_location location) const;
  /// @}

  /// The visible coordinate of the cell at a storage index.
  TOLVANITE_EXPORT MatrixCoordinate coordinateForRawIndex(Int index,
                                                          std::source_location location) const;

 private:
  // Whether a value is none of 0 to `end` - 1. A negative `end` is none: see `limit_`.
  static bool isBeyond(Int value, Int end) {
    return static_cast<std::uint64_t>(value) >= static_cast<std::uint64_t>(end);
  }
  [[noreturn]] TOLVANITE_EXPORT void fail(MatrixCoordinate coordinate,
                                          std::source_location location) const;
  [[noreturn]] void failBounds(MatrixCoordinate coordinate, std::source_location location) const;
  void deriveSteps();

  MatrixSize size_;
  Int first_ = 0;
  Int columnStep_ = 0;
  Int rowStep_ = 0;
  // The count of the storage; 0 if no cell can be accessed.
  Int limit_ = 0;
  MatrixSize originalSize_;
  TransformationMatrix transform_;
  TransformationMatrix inverseTransform_;
};

}  // namespace tolvanite::detail
