#include <Tolvanite/Matrix/TransformationMatrix.h>

#include <csignal>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Matrix/IntRect.h>

using namespace tolvanite;

namespace {

using T = TransformationMatrix;
const auto aborts = testing::KilledBySignal(SIGABRT);
constexpr Int most = std::numeric_limits<Int>::max();

TEST(TransformationMatrixTest, directionsMapTheCornersOfTheGrid) {
  struct Row {
    T::Direction direction;
    T matrix;
    IntCoordinate ofFirst;
    IntCoordinate ofLast;
  };
  // A grid of 3 x 2: where its cells (0, 0) and (2, 1) go.
  const std::vector<Row> rows{
      {T::Direction::nune, {1, 0, 0, 1, 0, 0}, {0, 0}, {2, 1}},
      {T::Direction::left, {0, 1, -1, 0, 1, 0}, {1, 0}, {0, 2}},
      {T::Direction::leftLeft, {-1, 0, 0, -1, 2, 1}, {2, 1}, {0, 0}},
      {T::Direction::right, {0, -1, 1, 0, 0, 2}, {0, 2}, {1, 0}},
      {T::Direction::flipped, {-1, 0, 0, 1, 2, 0}, {2, 0}, {0, 1}},
      {T::Direction::flippedLeft, {1, 0, 0, -1, 0, 1}, {0, 1}, {2, 0}},
      {T::Direction::flippedLeftLeft, {0, 1, 1, 0, 0, 0}, {0, 0}, {1, 2}},
      {T::Direction::flippedRight, {0, -1, -1, 0, 1, 2}, {1, 2}, {0, 0}},
  };
  ASSERT_EQ(T::Direction::all().size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Row& row = rows[i];
    SCOPED_TRACE(row.direction.description());
    EXPECT_EQ(T::Direction::all()[i], row.direction);
    const T matrix = T::makeDirection(row.direction, {3, 2});
    EXPECT_EQ(matrix, row.matrix);
    EXPECT_EQ(matrix.transformed({0, 0}), row.ofFirst);
    EXPECT_EQ(matrix.transformed({2, 1}), row.ofLast);
    const T inverse = matrix.inversedTransformationMatrix().forced("a direction can be undone");
    EXPECT_EQ(matrix.multipliedBy(inverse), T::identity);
    EXPECT_EQ(inverse.multipliedBy(matrix), T());
  }
}

TEST(TransformationMatrixTest, compositionsApplySelfFirst) {
  const T turnedThenMoved = T::makeRotation(90).multipliedBy(T::makeTranslation(10, 0));
  EXPECT_EQ(turnedThenMoved.transformed({1, 2}), IntCoordinate(8, 1));
  EXPECT_EQ(T::makeTranslation(10, 0).multipliedBy(T::makeRotation(90)).transformed({1, 2}),
            IntCoordinate(-2, 11));
  EXPECT_EQ(T::makeRotation(-90), T::makeRotation(270));
  EXPECT_EQ(T::makeRotation(450), T::makeRotation(90));
  EXPECT_EQ(T::makeScale(-1, -1), T::makeRotation(180));
  EXPECT_TRUE(T(0, 0, 0, 0, 0, 0).inversedTransformationMatrix().isNone());
  // Divisions cut off: of a determinant of 2, the inverse is only near.
  EXPECT_EQ(T(2, 0, 0, 1, 3, 0).inversedTransformationMatrix(), T(0, 0, 0, 1, -1, 0));
  EXPECT_EQ(T(1, 2, 3, 4, 5, 6).description(), "TransformationMatrix(\n1,2,0\n3,4,0\n5,6,1)");
  EXPECT_EQ(std::hash<T>()({1, 2, 4, 8, 16, 32}), 63U);
}

TEST(TransformationMatrixDeathTest, impossibleMaps) {
  EXPECT_EXIT(T::makeRotation(45), aborts,
              "error: rotation only in 90 degree steps possible: file");
  EXPECT_EXIT(T::makeRotation(-450), aborts, "error: sin\\(-90\\) not possible: file");
  EXPECT_EXIT(T::makeScale(1, 2), aborts,
              "error: scaling is only allowed by an factor of 1 or -1: file .*MatrixTest.cpp");
  EXPECT_EXIT(T::makeTranslation(most, 0).transformed({1, 0}), aborts, "Arithmetic overflow");
  EXPECT_EXIT(T(most, 2, 2, most, 0, 0).inversedTransformationMatrix(), aborts,
              "Arithmetic overflow");
}

TEST(IntGeometryTest, offsetsWrapOnce) {
  const IntCoordinate start(1, 5);
  EXPECT_EQ(start.withOffset(-2, 1), IntCoordinate(-1, 6));
  EXPECT_EQ(start.withOffset(-20, 1, 3), IntCoordinate(2, 5));
  EXPECT_EQ(start.withOffset(2, 0, 3), IntCoordinate(0, 6));
  EXPECT_EQ(start.withOffset(1, 0, 3), IntCoordinate(2, 5));
}

TEST(IntGeometryTest, sizesAndRects) {
  EXPECT_EQ(IntSize::ofWidth(4, 8), IntSize(4, 2));
  EXPECT_EQ(IntSize::ofWidth(4, 9), IntSize(4, 3));
  EXPECT_EQ(IntSize(4, 3).coordinateForIndex(6), IntCoordinate(2, 1));
  EXPECT_EQ(IntSize(4, 3).indexForCoordinate({2, 1}), 6);
  EXPECT_EXIT(static_cast<void>(IntSize::ofWidth(0, 1)), aborts, "Division by zero");
  const IntRect rect{.startColumn = 2, .endColumn = 3, .startRow = -1, .endRow = 0};
  EXPECT_EQ(std::vector<IntCoordinate>(rect.begin(), rect.end()),
            (std::vector<IntCoordinate>{{2, -1}, {3, -1}, {2, 0}, {3, 0}}));
  EXPECT_EQ(rect.description(),
            "IntRect(2 x 2: startColumn: 2, endColumn: 3, startRow: -1, endRow: 0))");
  EXPECT_EQ(
      (IntRect{.startColumn = 1, .endColumn = 0, .startRow = 0, .endRow = 9}).makeIterator().next(),
      std::nullopt);
}

}  // namespace
