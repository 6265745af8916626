// The sides of a matrix: the numbering of its cells, the walks over them, sizes that fit, and
// random places.
//
//   const MatrixSize size(8, 5);
//   for (const MatrixCoordinate cell : size.coordinateIterator_spiral()) draw(cell);
//   auto walk = size.coordinateIterator_checkered(2);
//   const Optional<MatrixCoordinate> first = walk.next();               // (0, 0)
//   MatrixSize::from(20, 16.0F / 9);                                    // (6, 4)
//
// Every walk yields each cell of the size once and keeps a few integers only, but for the random
// one; over a size without cells it yields nothing, but for the random outer line. It holds no
// reference to the size. Making a further walk starts over.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <ostream>
#include <source_location>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/CheckeredWalk.h>
#include <Tolvanite/Matrix/IntSize.h>
#include <Tolvanite/Matrix/ListedWalk.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/MatrixRect.h>
#include <Tolvanite/Matrix/OrderedWalk.h>
#include <Tolvanite/Matrix/RandomOuterLineWalk.h>
#include <Tolvanite/Matrix/SpiralWalk.h>
#include <Tolvanite/Matrix/TransformationMatrix.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The side of the smallest square that has room for `count` elements: the root, rounded up. A
/// `count` below 1 is fatal.
TOLVANITE_EXPORT Int
squareMatrixSideLength(Int count, std::source_location location = std::source_location::current());

/// A width and a height. Overflow in its arithmetic is fatal, and so is a division by a side of 0.
struct TOLVANITE_EXPORT MatrixSize {
  /// Both sides are the highest Int.
  static const MatrixSize max;

  constexpr MatrixSize() = default;
  /// Of these sides; nothing is checked.
  constexpr MatrixSize(Int ownWidth, Int ownHeight) : width(ownWidth), height(ownHeight) {}
  /// The width first.
  constexpr explicit MatrixSize(std::pair<Int, Int> tuple)
      : MatrixSize(tuple.first, tuple.second) {}
  /// That width, and the height that `elementCount` elements need.
  static constexpr MatrixSize ofWidth(
      Int width, Int elementCount,
      std::source_location location = std::source_location::current()) {
    return {width, detail::dividedRoundedUp(elementCount, width, location)};
  }

  /// The same sides as a plain size.
  constexpr operator IntSize() const { return {width, height}; }

  /// The number of cells.
  constexpr Int count(std::source_location location = std::source_location::current()) const {
    return checkedMultiply(width, height, location);
  }
  /// Whether both sides are 0. A size with one side of 0 has no cells either, but is not empty,
  /// deliberately.
  constexpr bool isEmpty() const { return width == 0 && height == 0; }
  /// The sides exchanged.
  constexpr MatrixSize sizeFlipped() const { return {height, width}; }
  /// The width less `dx`, the height less `dy`.
  constexpr MatrixSize sizeInsetBy(
      Int dx, Int dy, std::source_location location = std::source_location::current()) const {
    return {checkedSubtract(width, dx, location), checkedSubtract(height, dy, location)};
  }
  /// The size of the transformed cells: the sides exchanged if the transformation turns by a
  /// quarter.
  constexpr MatrixSize transformed(
      const TransformationMatrix& transform,
      std::source_location location = std::source_location::current()) const {
    return checkedMultiply(transform.b, width, location) == 0 ? *this : sizeFlipped();
  }

  /// Whether the coordinate is that of a cell.
  constexpr bool contains(MatrixCoordinate coordinate) const {
    return coordinate.x >= 0 && coordinate.y >= 0 && coordinate.x < width && coordinate.y < height;
  }
  /// The cell of that number, counted row by row from 0.
  constexpr MatrixCoordinate coordinateForIndex(
      Int index, std::source_location location = std::source_location::current()) const {
    return detail::rowMajorCoordinate<MatrixCoordinate>(index, width, location);
  }
  /// The same, with the rows counted from the other end.
  constexpr MatrixCoordinate coordinateForIndex_verticallyFlipped(
      Int index, std::source_location location = std::source_location::current()) const {
    const MatrixCoordinate plain = coordinateForIndex(index, location);
    return {plain.x, checkedSubtract(checkedSubtract(height, plain.y, location), Int{1}, location)};
  }
  /// The number of a cell, counted row by row from 0. The coordinate need not lie in the size.
  constexpr Int indexForCoordinate(
      MatrixCoordinate coordinate,
      std::source_location location = std::source_location::current()) const {
    return detail::rowMajorIndex(coordinate.x, coordinate.y, width, location);
  }
  /// The same; absent if the number is negative or not below `totalCount`.
  constexpr Optional<Int> indexForCoordinate(
      MatrixCoordinate coordinate, Int totalCount,
      std::source_location location = std::source_location::current()) const {
    const Int index = indexForCoordinate(coordinate, location);
    if (index < 0 || index >= totalCount) return {};
    return index;
  }

  /// Row after row.
  constexpr OrderedWalk coordinateIterator(
      std::source_location location = std::source_location::current()) const {
    static_cast<void>(count(location));
    return {width, height};
  }
  /// In sweeps of every `step`-th cell, as diagonal patterns. A `step` below 1 is fatal.
  constexpr CheckeredWalk coordinateIterator_checkered(
      Int step = 3, std::source_location location = std::source_location::current()) const {
    return {width, height, step, location};
  }
  /// Along the border, and then further in, clockwise if y is seen to grow downward.
  constexpr SpiralWalk coordinateIterator_spiral(
      bool counterClockwise = false,
      std::source_location location = std::source_location::current()) const {
    return {width, height, counterClockwise, location};
  }
  /// In lines that are peeled off at random, beginning in the corners.
  RandomOuterLineWalk coordinateIterator_randomOuterLine() const { return {width, height}; }
  /// In random order, which takes memory linear in the cells.
  RandomWalk coordinateIterator_randomPrecalculated(
      std::source_location location = std::source_location::current()) const {
    return {width, height, location};
  }
  /// In the order of a list, which is cut to the count of the size. A shorter list is fatal when
  /// the walk runs past its end.
  GivenWalk coordinateIterator_array(
      std::vector<MatrixCoordinate> coordinates,
      std::source_location location = std::source_location::current()) const {
    return {width, height, std::move(coordinates), location};
  }

  /// The number of cells of the outline. A single column counts twice but for its ends,
  /// deliberately. A height below 1 is fatal.
  Int countStrokedRect(std::source_location location = std::source_location::current()) const;
  /// The cell of that number of the outline, from (0, 0) clockwise if y is seen to grow downward.
  /// The number one past the last gives (0, 0) again; a higher one is fatal.
  MatrixCoordinate coordinateForStrokedRectIndex(
      Int index, std::source_location location = std::source_location::current()) const;

  /// This width, and the height that `elementCount` elements need.
  MatrixSize matrixSizeByReducingHeightToFit(
      Int elementCount, std::source_location location = std::source_location::current()) const;
  /// This height, and the width that `elementCount` elements need.
  MatrixSize matrixSizeByReducingWidthToFit(
      Int elementCount, std::source_location location = std::source_location::current()) const;
  /// A size within the maximum. If one side has to be cut, the other grows to keep the count of
  /// cells, as far as the maximum allows.
  MatrixSize matrixSizeToFitInto(MatrixSize maximumSize, std::source_location location =
                                                             std::source_location::current()) const;
  /// A size for so many elements, about `ratio` times as wide as high; below 7 elements the ratio
  /// does not count. A negative `elementCount` is fatal, and so is a ratio that leads to no size.
  static MatrixSize from(Int elementCount, float ratio,
                         std::source_location location = std::source_location::current());
  /// The smallest square for so many elements, without the rows that it would leave empty. An
  /// `elementCount` below 1 is fatal.
  static MatrixSize matrixSizeForSquareMatrix(
      Int elementCount, std::source_location location = std::source_location::current());

  /// A cell, all equally likely. Draws x, then y. A side of 0 is fatal: "maxValue has to be at
  /// least 1".
  MatrixCoordinate randomCoordinate(
      std::source_location location = std::source_location::current()) const;
  /// A rect of cells, at least `minSize`, or (1, 1), and at most `maxSize`, or this size. Draws its
  /// width, height, x and y.
  MatrixRect randomRect(const Optional<MatrixSize>& minSize = {},
                        const Optional<MatrixSize>& maxSize = {},
                        std::source_location location = std::source_location::current()) const;
  /// Where an object of that size can stand. Draws x, then y. Absent unless there is room to spare
  /// on both axes: an object as wide or as high as this size is refused, deliberately.
  Optional<MatrixCoordinate> coordinateOfRandomlyPlaced(
      MatrixSize objectWithSize,
      std::source_location location = std::source_location::current()) const;
  /// The same, with 0 on an axis without room to spare.
  MatrixCoordinate coordinateOfRandomlyPlacedOr00(
      MatrixSize objectWithSize,
      std::source_location location = std::source_location::current()) const;
  /// The rect of that object at `coordinateOfRandomlyPlacedOr00`.
  MatrixRect rectRandomlyPosition(
      MatrixSize objectSize, std::source_location location = std::source_location::current()) const;

  /// "MatrixSize(WIDTH, HEIGHT)".
  std::string description() const;

  friend constexpr bool operator==(const MatrixSize&, const MatrixSize&) = default;
  friend std::ostream& operator<<(std::ostream& out, const MatrixSize& size) {
    return out << size.description();
  }

  Int width = 0;   ///< The number of columns.
  Int height = 0;  ///< The number of rows.
};

inline constexpr MatrixSize MatrixSize::max{std::numeric_limits<Int>::max(),
                                            std::numeric_limits<Int>::max()};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::MatrixSize> {
  std::size_t operator()(const tolvanite::MatrixSize& size) const noexcept {
    return tolvanite::detail::mixedHash(size.width, size.height);
  }
};
