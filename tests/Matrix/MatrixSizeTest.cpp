// Coordinates, sizes and rects of matrices.
#include <Tolvanite/Matrix/MatrixSize.h>

#include <csignal>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <string>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include <tests/Support/ScriptedRandom.h>

using namespace tolvanite;
using tolvanite::test::ScriptedRandom;

namespace {

const auto aborts = testing::KilledBySignal(SIGABRT);
constexpr Int most = std::numeric_limits<Int>::max();
using Bounds = std::vector<std::uint32_t>;

TEST(MatrixCoordinateTest, stepsAndTheirLimits) {
  using Direction = MatrixCoordinate::Direction;
  const MatrixCoordinate start(1, 1);
  const MatrixSize size(3, 2);
  const std::vector<MatrixCoordinate> neighbours{{1, 2}, {0, 1}, {1, 0}, {2, 1}};
  for (const Direction direction : Direction::all()) {
    EXPECT_EQ(start.coordinateTo(direction), neighbours.at(direction)) << direction;
  }
  EXPECT_TRUE(start.up(1, size).isNone() && start.up(2).isSome());
  EXPECT_TRUE(start.left(2).isNone() && start.down(2).isNone());
  EXPECT_EQ(start.right(1, size), MatrixCoordinate(2, 1));
  EXPECT_TRUE(start.right(2, size).isNone());
  EXPECT_EQ(start.left(-1), MatrixCoordinate(2, 1));

  EXPECT_EQ(start.coordinateMovedBy(1, 0, size, 6), MatrixCoordinate(2, 1));
  EXPECT_TRUE(start.coordinateMovedBy(1, 0, size, 5).isNone());
  EXPECT_EQ(start.coordinateMovedBy(8, 0, {}, 5), MatrixCoordinate(9, 1));
  EXPECT_EQ(start.position(size), 4);
  EXPECT_EXIT(MatrixCoordinate(most, 0).right(), aborts, "Arithmetic overflow: file .*SizeTest");
}

TEST(MatrixCoordinateTest, movesByLabels) {
  MatrixCoordinate place(2, 3);
  EXPECT_EQ(place.coordinateMovedByTo({.dx = -5, .dy = 1}), MatrixCoordinate(-3, 4));
  EXPECT_EQ(place.coordinateMovedByTo({.x = 0, .dy = 1}), MatrixCoordinate(0, 4));
  EXPECT_EQ(place.coordinateMovedByTo({.dx = 1, .y = 0}), MatrixCoordinate(3, 0));
  place.moveByTo({.x = 7, .dy = -1});
  EXPECT_EQ(place + MatrixCoordinate(1, 1), MatrixCoordinate(8, 3));
  EXPECT_EQ(place.description(), "MatrixCoordinate(7, 2)");
  std::unordered_set<std::size_t> hashes;
  for (const auto cell : MatrixSize(30, 30).coordinateIterator()) {
    hashes.insert(std::hash<MatrixCoordinate>()(cell));
  }
  EXPECT_EQ(hashes.size(), 900U);
}

TEST(MatrixSizeTest, numbersOfCells) {
  const MatrixSize size(4, 3);
  EXPECT_EQ(size.coordinateForIndex(6), MatrixCoordinate(2, 1));
  EXPECT_EQ(size.coordinateForIndex_verticallyFlipped(2), MatrixCoordinate(2, 2));
  EXPECT_EQ(size.indexForCoordinate({2, 1}), 6);
  EXPECT_EQ(size.indexForCoordinate({2, 1}, 7), 6);
  EXPECT_TRUE(size.indexForCoordinate({2, 1}, 6).isNone());
  EXPECT_TRUE(size.indexForCoordinate({0, -1}, 6).isNone());
  EXPECT_TRUE(size.contains({3, 2}) && !size.contains({4, 0}) && !size.contains({0, -1}));
  EXPECT_TRUE(MatrixSize(0, 0).isEmpty() && !MatrixSize(0, 5).isEmpty());
  EXPECT_EQ(MatrixSize(0, 5).count(), 0);
  EXPECT_EXIT(static_cast<void>(MatrixSize::max.count()), aborts, "Arithmetic overflow");
  EXPECT_EXIT(static_cast<void>(MatrixSize(0, 3).coordinateForIndex(0)), aborts, "by zero");
  using T = TransformationMatrix;
  EXPECT_EQ(size.transformed(T::makeRotation(90)), MatrixSize(3, 4));
  EXPECT_EQ(size.transformed(T::makeRotation(180)), size);
  EXPECT_EQ(MatrixSize(0, 3).transformed(T::makeRotation(90)), MatrixSize(0, 3));
}

TEST(MatrixSizeTest, sizesThatFit) {
  EXPECT_EQ(MatrixSize::ofWidth(4, 9), MatrixSize(4, 3));
  EXPECT_EQ(MatrixSize(4, 99).matrixSizeByReducingHeightToFit(8), MatrixSize(4, 2));
  EXPECT_EQ(MatrixSize(99, 4).matrixSizeByReducingWidthToFit(9), MatrixSize(3, 4));

  const std::vector<MatrixSize> small{{0, 0}, {1, 1}, {2, 1}, {2, 2}, {2, 2}, {3, 2}, {3, 2}};
  for (Int count = 0; count < 7; ++count) {
    EXPECT_EQ(MatrixSize::from(count, 100), small[static_cast<std::size_t>(count)]);
  }
  EXPECT_EQ(MatrixSize::from(7, 1), MatrixSize(3, 3));
  EXPECT_EQ(MatrixSize::from(12, 1), MatrixSize(3, 4));
  EXPECT_EQ(MatrixSize::from(20, 16.0F / 9), MatrixSize(6, 4));
  EXPECT_EQ(MatrixSize::from(7, 100), MatrixSize(7, 1));
  for (const float ratio : {0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_EXIT(MatrixSize::from(7, ratio), aborts, "No matrix size of the ratio") << ratio;
  }
  EXPECT_EXIT(MatrixSize::from(-1, 1), aborts, "for -1 elements");

  EXPECT_EQ(MatrixSize::matrixSizeForSquareMatrix(5), MatrixSize(3, 2));
  EXPECT_EQ(MatrixSize::matrixSizeForSquareMatrix(9), MatrixSize(3, 3));
  const Int root = 3'000'000'007;
  EXPECT_EQ(squareMatrixSideLength(root * root), root);
  EXPECT_EQ(squareMatrixSideLength(root * root + 1), root + 1);
  EXPECT_EQ(squareMatrixSideLength(most), 3'037'000'500);
  EXPECT_EQ(squareMatrixSideLength(1), 1);
  EXPECT_EXIT(squareMatrixSideLength(0), aborts, "room for 0 elements");
}

TEST(MatrixSizeTest, fitsIntoAMaximum) {
  const MatrixSize maximum(6, 4);
  EXPECT_EQ(MatrixSize(6, 4).matrixSizeToFitInto(maximum), MatrixSize(6, 4));
  EXPECT_EQ(MatrixSize(7, 5).matrixSizeToFitInto(maximum), maximum);
  EXPECT_EQ(MatrixSize(3, 5).matrixSizeToFitInto(maximum), MatrixSize(4, 4));
  EXPECT_EQ(MatrixSize(6, 5).matrixSizeToFitInto(maximum), MatrixSize(6, 4));
  EXPECT_EQ(MatrixSize(9, 1).matrixSizeToFitInto(maximum), MatrixSize(6, 2));
  EXPECT_EQ(MatrixSize(99, 1).matrixSizeToFitInto(maximum), MatrixSize(6, 4));
}

TEST(MatrixSizeTest, randomPlacesByTheirDraws) {
  const MatrixSize size(8, 5);
  {
    ScriptedRandom random({6, 4});
    EXPECT_EQ(size.randomCoordinate(), MatrixCoordinate(6, 4));
    EXPECT_EQ(random.bounds, (Bounds{8, 5}));
  }
  {
    ScriptedRandom random({3, 1, 2, 3});
    EXPECT_EQ(size.randomRect(), MatrixRect::ofPosition(2, 3, 4, 2));
    EXPECT_EQ(random.bounds, (Bounds{8, 5, 5, 4})) << "width, height, x, y";
  }
  {
    ScriptedRandom random({1, 0, 5, 1});
    EXPECT_EQ(size.randomRect(MatrixSize(2, 4), MatrixSize(3, 5)),
              MatrixRect::ofPosition(5, 1, 3, 4));
    EXPECT_EQ(random.bounds, (Bounds{2, 2, 6, 2}));
  }
  ScriptedRandom none({});
  EXPECT_EQ(size.randomRect(size), MatrixRect({0, 0}, size)) << "nothing to draw";
}

TEST(MatrixSizeTest, randomlyPlacedObjects) {
  const MatrixSize size(8, 5);
  EXPECT_TRUE(size.coordinateOfRandomlyPlaced(size).isNone());
  EXPECT_TRUE(size.coordinateOfRandomlyPlaced({7, 5}).isNone());
  ScriptedRandom random({1, 2, 1, 2, 3});
  EXPECT_EQ(size.coordinateOfRandomlyPlaced({7, 3}), MatrixCoordinate(1, 2));
  EXPECT_EQ(size.coordinateOfRandomlyPlacedOr00({7, 9}), MatrixCoordinate(1, 0));
  EXPECT_EQ(size.rectRandomlyPosition({6, 1}), MatrixRect({2, 3}, {6, 1}));
  EXPECT_EQ(random.bounds, (Bounds{2, 3, 2, 3, 5}));
  EXPECT_EXIT(MatrixSize(4, 0).randomCoordinate(), aborts, "maxValue has to be at least 1");
}

TEST(MatrixRectTest, bothEndsBelongToIt) {
  MatrixRect rect(MatrixCoordinate(2, 1), MatrixSize(3, 2));
  EXPECT_EQ(rect, MatrixRect::ofEnds(2, 4, 1, 2));
  EXPECT_EQ(rect.size(), MatrixSize(3, 2));
  EXPECT_EQ(rect.description(),
            "MatrixRect(3 x 2: startColumn: 2, endColumn: 4, startRow: 1, endRow: 2))");
  std::vector<MatrixCoordinate> cells;
  for (const MatrixCoordinate cell : rect) cells.push_back(cell);
  EXPECT_EQ(cells, (std::vector<MatrixCoordinate>{{2, 1}, {3, 1}, {4, 1}, {2, 2}, {3, 2}, {4, 2}}));
  EXPECT_EQ(rect.rectInsetedBy(-1, 1), MatrixRect::ofEnds(1, 5, 2, 1));
  EXPECT_TRUE(rect.rectInsetedBy(2, 0).makeIterator().next().isNone());
  rect.formUnion(MatrixRect::ofPosition(0, 2, 1, 4));
  EXPECT_EQ(rect, MatrixRect::ofEnds(0, 4, 1, 5));
  EXPECT_EQ(rect.rectMovedBy(1, -1).bottomRight(), MatrixCoordinate(5, 4));
  EXPECT_EXIT(MatrixRect::ofEnds(-2, most, 0, 0), aborts, "Arithmetic overflow: file .*SizeTest");
  EXPECT_EXIT(rect.moveBy(most, 0), aborts, "Arithmetic overflow");
  const MatrixRect atTheEnd = MatrixRect::ofEnds(most, most, most, most);
  EXPECT_EQ(std::distance(atTheEnd.begin(), std::ranges::next(atTheEnd.begin(), atTheEnd.end())),
            1);
}

}  // namespace
