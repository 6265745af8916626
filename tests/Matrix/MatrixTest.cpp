#include <Tolvanite/Matrix/Matrix.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <Tolvanite/Matrix/Pixel.h>

#include <tests/Support/CapturedOutput.h>
#include <tests/Support/ScriptedRandom.h>

using namespace tolvanite;
using tolvanite::test::ScriptedRandom;
using tolvanite::testing::CapturedOutput;

namespace {

using T = TransformationMatrix;
using At = MatrixCoordinate;
using Bounds = std::vector<std::uint32_t>;
using Numbers = Matrix<int>;
using Texts = Matrix<std::string>;
const auto aborts = ::testing::KilledBySignal(SIGABRT);

// 0, 1, 2, ... row by row.
Numbers numbered(Int width, Int height) {
  Numbers matrix(width, height);
  int next = 0;
  for (const auto cell : matrix.size().coordinateIterator()) matrix[cell] = next++;
  return matrix;
}

// The visible rows: "012/345", "_" for absent.
template <typename Element>
std::string shown(const Matrix<Element>& matrix) {
  std::string result;
  for (const auto& row : matrix.rows()) {
    if (!result.empty()) result += '/';
    for (const auto& cell : row) result += cell.has_value() ? textForm(*cell) : "_";
  }
  return result;
}

TEST(MatrixTest, countsWhatIsWritten) {
  Numbers ones(2, 2, 1);
  EXPECT_TRUE(ones.isEmpty() && ones.fillCount() == 0) << "the constructor does not count";
  ones[{0, 0}] = std::nullopt;
  EXPECT_EQ(ones.fillCount(), -1);
  EXPECT_EQ(ones.freeCount(), 5);

  Numbers matrix(MatrixSize(2, 2));
  matrix[{0, 0}] = 1;
  matrix[{0, 0}] = 2;
  matrix[{1, 0}] = matrix[{0, 0}];
  EXPECT_EQ(matrix.fillCount(), 2);
  EXPECT_EQ(matrix.fillPercentage(), 50.0);
  matrix[{1, 0}] = matrix[{1, 1}];
  EXPECT_EQ(matrix.fillCount(), 1);
  EXPECT_EQ(shown(matrix), "2_/__");
  matrix.clear();
  EXPECT_TRUE(matrix.isEmpty() && !matrix.isFull() && shown(matrix) == "__/__");
  EXPECT_TRUE(Numbers().isFull() && Numbers().isEmpty());
}

TEST(MatrixTest, cellsOfAnyElement) {
  Texts texts(2, 1, "a text that is longer than any buffer");
  texts[{1, 0}] = "b";
  EXPECT_EQ(texts[At(1, 0)]->size(), 1U);
  EXPECT_TRUE(texts[At(1, 0)] == "b" && "b" == *texts[At(1, 0)] &&
              texts[At(1, 0)] != texts[At(0, 0)]);
  EXPECT_EQ(texts[At(0, 0)].value_or("").size(), 37U);
  const Optional<std::string>& read = std::as_const(texts)[{1, 0}];
  EXPECT_EQ(read, "b");
  EXPECT_EQ(textForm(texts[At(1, 0)]), "b");

  Matrix<bool> flags(70, 1, true);
  flags[{64, 0}] = false;
  flags[{65, 0}] = std::nullopt;
  EXPECT_TRUE(flags[At(63, 0)] == true && flags[At(64, 0)] == false && flags[At(65, 0)].isNone());
  EXPECT_EQ(flags.fillCount(), -1);
  flags[{65, 0}] = true;
  EXPECT_TRUE(flags[At(65, 0)].isSome() && flags[At(69, 0)].isSome());

  Matrix<std::shared_ptr<int>> pointers(1, 1, std::make_shared<int>(3));
  EXPECT_EQ(**pointers[At(0, 0)], 3);
  const std::array<Pixel, 2> pixels{Pixel(1, 2, 3), Pixel(4, 5, 6, 7)};
  std::array<std::uint8_t, 8> bytes{};
  std::copy_n(reinterpret_cast<const std::uint8_t*>(pixels.data()), 8, bytes.begin());
  EXPECT_THAT(bytes, ::testing::ElementsAre(1, 2, 3, 255, 4, 5, 6, 7));
}

template <typename Element>
void copyApart(Matrix<Element> first, const Element& value) {
  const Matrix<Element> kept = first;
  Matrix<Element> second = first;
  second[{1, 0}] = value;
  first[{0, 0}] = std::nullopt;
  EXPECT_NE(second, kept);
  EXPECT_TRUE(kept[At(0, 0)].isSome() && second[At(0, 0)].isSome() && first[At(0, 0)].isNone());
  EXPECT_TRUE(kept[At(1, 0)].isNone() && first[At(1, 0)].isNone() && second[At(1, 0)] == value);
  EXPECT_EQ(first.fillCount() + 1, kept.fillCount());

  const Matrix<Element> moved = std::move(second);
  EXPECT_EQ(moved.size(), kept.size());
  // NOLINTNEXTLINE(bugprone-use-after-move, clang-analyzer-cplusplus.Move)
  EXPECT_EQ(second.size(), MatrixSize()) << "left without cells";
  second = kept;
  second.clear();
  EXPECT_TRUE(kept[At(0, 0)].isSome());
}

TEST(MatrixTest, copiesAreApart) {
  Numbers numbers(2, 1);
  numbers[{0, 0}] = 5;
  copyApart(numbers, 7);
  Texts texts(2, 1);
  texts[{0, 0}] = "five";
  copyApart<std::string>(texts, "seven");

  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([copy = numbers, i]() mutable {
      for (int round = 0; round < 1000; ++round) copy[{0, 0}] = *copy[{0, 0}] + i;
      EXPECT_EQ(copy[At(0, 0)], 5 + 1000 * i);
    });
  }
  numbers[{0, 0}] = 9;
  for (std::thread& thread : threads) thread.join();
}

TEST(MatrixTest, transformsMoveNoCell) {
  Numbers matrix = numbered(3, 2);
  const std::vector<std::string> views{"012/345", "30/41/52", "543/210",  "25/14/03",
                                       "210/543", "345/012",  "03/14/25", "52/41/30"};
  for (const auto direction : T::Direction::all()) {
    SCOPED_TRACE(direction.description());
    matrix.setTransform(T::makeDirection(direction, matrix.originalSize()));
    EXPECT_EQ(shown(matrix), views.at(direction));
    EXPECT_EQ(matrix.originalSize(), MatrixSize(3, 2));
    std::string byCell;
    for (Int y = 0; y < matrix.size().height; ++y) {
      if (y > 0) byCell += '/';
      for (Int x = 0; x < matrix.size().width; ++x) {
        byCell += textForm(*matrix[{x, y}]);
        EXPECT_EQ(matrix.column(x)[y], matrix[At(x, y)]);
      }
    }
    EXPECT_EQ(byCell, views.at(direction));
    std::string raw;
    for (const auto& cell : matrix.makeIterator()) raw += textForm(*cell);
    for (const auto& cell : matrix) raw += textForm(*cell);
    EXPECT_EQ(raw, "012345012345");
    int expected = 0;
    for (const auto place : matrix.makeSetCoordinateIterator()) {
      EXPECT_EQ(matrix[place], expected++);
    }
    matrix.testTranformationCalculation();
  }
  EXPECT_EQ(matrix.rawIndex(4), 4);
  EXPECT_TRUE(matrix.rawIndex(6).isNone());
  EXPECT_EQ(matrix.fillCount(), 6);
  matrix[{0, 0}] = 9;
  matrix.setTransform(T::identity);
  EXPECT_EQ(shown(matrix), "012/349");
}

TEST(MatrixDeathTest, transformsThatLeadAstray) {
  Numbers matrix = numbered(3, 2);
  EXPECT_EXIT(matrix.setTransform(T(1, 1, 1, 1, 0, 0)), aborts, "The transform has no inverse: T");
  matrix.setTransform(T::makeTranslation(1, 0));
  EXPECT_EQ(matrix[At(1, 0)], 0);
  EXPECT_EQ(matrix[At(0, 1)], 2) << "by the index alone, which is that of the row before";
  EXPECT_EXIT(matrix[At(0, 0)], aborts, "Index -1 out of range, 6 elements: file .*MatrixTest.cpp");
  EXPECT_EXIT(static_cast<void>(matrix.row(0)), aborts, "Index -1 out of range");
  EXPECT_EQ(matrix.row(1)[2], 4);
  matrix.setTransform(T::makeTranslation(std::numeric_limits<Int>::min() + 2, 0));
  EXPECT_EXIT(matrix[At(0, 0)], aborts, "Arithmetic overflow|out of range");

  matrix.setTransform(T(2, 0, 0, 1, 0, 0));
  EXPECT_EXIT(
      {
        ::dup2(2, 1);
        matrix.testTranformationCalculation();
      },
      aborts,
      "self.debugDescription = Matrix\\(3,2\\): \\(\n   012\n 0:XXX\n 1:XXX\n\\)\n\n*Fatal");
}

TEST(MatrixDeathTest, coordinatesOutOfBounds) {
  Numbers matrix = numbered(3, 2);
  const Numbers& toRead = matrix;
  const char* message =
      "error: Coordinate out of bounds: MatrixCoordinate\\(3, 0\\) \\(MatrixSize\\(3, 2\\)\\): "
      "file .*MatrixTest.cpp";
  EXPECT_EXIT(static_cast<void>(toRead[At(3, 0)]), aborts, message);
  EXPECT_EXIT((matrix[At(3, 0)] = 1), aborts, message);
  for (const MatrixCoordinate cell : {MatrixCoordinate(0, 2), {-1, 0}, {0, -1}}) {
    EXPECT_EXIT(static_cast<void>(toRead[cell]), aborts, "Coordinate out of bounds");
  }
  EXPECT_EXIT(static_cast<void>(Numbers()[At(0, 0)]), aborts, "\\(MatrixSize\\(0, 0\\)\\)");
  EXPECT_EXIT(static_cast<void>(matrix.row(2)), aborts, "MatrixCoordinate\\(0, 2\\)");
  EXPECT_EXIT(static_cast<void>(matrix.row(0)[3]), aborts, "Index 3 out of range, 3 elements");
  EXPECT_EXIT(static_cast<void>(matrix.rawIndex(-1)), aborts, "Index -1 out of range");
  EXPECT_EXIT(Numbers(-1, 2), aborts, "no negative number of cells");
}

TEST(MatrixTest, randomSearchesByTheirDraws) {
  struct Row {
    std::deque<std::uint32_t> draws;
    std::vector<int> candidates;
    Optional<MatrixCoordinate> found;
    Bounds bounds;
  };
  // A matrix of 3 x 2 seen as 2 x 3; the numbers are storage indexes.
  const std::vector<Row> rows{
      {{1, 2}, {2}, MatrixCoordinate(1, 2), {2, 3}},                       // a hit at once: (1, 2)
      {{0, 0, 3, 1}, {0, 2, 4}, MatrixCoordinate(1, 2), {2, 3, 6, 2}},     // 2, from 3 downward
      {{0, 0, 3, 0}, {0, 2, 4, 5}, MatrixCoordinate(0, 1), {2, 3, 6, 2}},  // 4, from 3 upward
      {{0, 0, 2, 1}, {4, 5}, MatrixCoordinate(0, 1), {2, 3, 6, 2}},        // 4, upward behind 1, 0
      {{0, 0, 4, 0}, {0, 1}, MatrixCoordinate(1, 1), {2, 3, 6, 2}},  // 1, downward behind 4, 5
      {{0, 0, 0, 1}, {}, {}, {2, 3, 6, 2}},
  };
  Numbers matrix = numbered(3, 2);
  matrix.setTransform(T::makeDirection(T::Direction::left, matrix.originalSize()));
  for (const Row& row : rows) {
    ScriptedRandom random(row.draws);
    const auto found = matrix.randomCoordinateWithCondition(
        [&](const Optional<int>& cell) { return std::ranges::count(row.candidates, *cell) != 0; });
    EXPECT_EQ(found, row.found);
    EXPECT_EQ(random.bounds, row.bounds);
  }
  matrix[{1, 0}] = std::nullopt;
  EXPECT_EQ(matrix.randomEmptyCoordinate(), MatrixCoordinate(1, 0));
  EXPECT_NE(matrix.randomNonEmptyCoordinate(), MatrixCoordinate(1, 0));
}

TEST(MatrixTest, firstCoordinateInSweepsOverTheStorage) {
  const Numbers matrix = numbered(3, 3);
  const auto visited = [&](Int step) {
    std::string result;
    EXPECT_TRUE(matrix
                    .firstCoordinateWithCondition(step,
                                                  [&](const Optional<int>& cell) {
                                                    result += textForm(*cell);
                                                    return false;
                                                  })
                    .isNone());
    return result;
  };
  EXPECT_EQ(visited(1), "012345678");
  EXPECT_EQ(visited(4), "048152637");
  EXPECT_EQ(visited(std::numeric_limits<Int>::max()), "012345678");
  EXPECT_EQ(visited(0), "");
  EXPECT_EQ(matrix.firstCoordinateWithCondition([](auto& cell) { return cell > 3; }),
            MatrixCoordinate(1, 1));
  EXPECT_EXIT(visited(-1), aborts, "checkered step");
}

TEST(MatrixTest, fillsFromAnotherMatrix) {
  Numbers matrix(3, 2, 7);
  Numbers other = numbered(2, 1);
  other[{1, 0}] = std::nullopt;
  CapturedOutput output;
  matrix.fillWithMatrix(other);
  EXPECT_EQ(shown(matrix), "0_7/777");
  EXPECT_EQ(matrix.fillCount(), -1);
  matrix.fillWithMatrix(other, true);
  EXPECT_EQ(shown(matrix), "0__/___");
  EXPECT_EQ(output.text(),
            "Matrix(3,2) fillWithMatrix Matrix(2,1)\n"
            "Matrix(3,2) fillWithMatrix Matrix(2,1)\n");
}

TEST(MatrixTest, fillsAPercentage) {
  Numbers matrix(2, 2, 9);
  ScriptedRandom random({4999, 5000, 0, 99999});
  CapturedOutput output;
  int next = 0;
  matrix.fillWithPercent(5, [&] { return next++; });
  EXPECT_EQ(shown(matrix), "0_/1_");
  EXPECT_EQ(random.bounds, Bounds(4, 100000));
  EXPECT_EQ(output.text(), "filling matrix(MatrixSize(2, 2)) with 5 \nfillcount = -2 == -0.5\n");
  EXPECT_EXIT(matrix.fillWithPercent(4.9, [] { return 1; }), aborts, "at least 5 percent, not 4.9");
  EXPECT_EXIT(matrix.fillWithPercent(1e9, [] { return 1; }), aborts, "Arithmetic overflow");
}

TEST(MatrixTest, fillsAPattern) {
  Numbers matrix(3, 2);
  matrix.fillWithPattern({1, std::nullopt});
  EXPECT_EQ(shown(matrix), "1_1/_1_");
  EXPECT_EQ(matrix.fillCount(), 6) << "whatever the pattern held";
  matrix.fillWithPattern(std::vector<int>{1, 2, 3, 4});
  EXPECT_EQ(shown(matrix), "123/412");
  EXPECT_EXIT(matrix.fillWithPattern({}), aborts, "needs a pattern");
  Numbers empty(0, 4);
  empty.fillWithPattern({});
  EXPECT_EQ(empty.fillCount(), 0);
}

TEST(MatrixTest, draws) {
  Matrix<char> matrix(5, 4);
  matrix.draw(MatrixRect::ofEnds(1, 3, 1, 3), 'x');
  EXPECT_EQ(shown(matrix), "_____/_xxx_/_x_x_/_xxx_");
  matrix.fill(MatrixRect::ofEnds(0, 1, 0, 1), std::nullopt);
  matrix.fill(MatrixRect::ofEnds(4, 3, 0, 1), 'y');
  matrix.draw(MatrixRect::ofEnds(4, 3, 0, 0), 'y');
  EXPECT_EQ(shown(matrix), "_____/__xx_/_x_x_/_xxx_");
  EXPECT_EQ(matrix.fillCount(), 7);
  matrix.clear();
  matrix.drawLineHorizontal({1, 0}, 2, 'a');
  matrix.drawLineHorizontal({1, 0}, 0, 'b');
  matrix.drawLineHorizontal2({3, 1}, {'p', 'q', 'r'});
  matrix.drawLineHorizontal2({0, 2}, std::string("st"));
  EXPECT_EQ(shown(matrix), "_aa__/___pq/st___/_____");
  EXPECT_EXIT(matrix.drawLineHorizontal({3, 0}, 3, 'x'), aborts, "MatrixCoordinate\\(5, 0\\)");
  EXPECT_EXIT(matrix.drawLineHorizontal2({5, 0}, {'x'}), aborts, "MatrixCoordinate\\(5, 0\\)");
  EXPECT_EXIT(matrix.draw(MatrixRect::ofEnds(0, 3, 0, 1), 'x'), aborts, "needs three rows: Matrix");

  using Pixels = std::vector<MatrixPixel<char>>;
  EXPECT_EQ(matrix.matrixPixels_drawLineHorizontal({4, 9}, 2, 'x'),
            (Pixels{{{4, 9}, 'x'}, {{5, 9}, 'x'}}));
  EXPECT_EQ(matrix.matrixPixels_drawLineHorizontal({-2, 0}, 9, 'x'), (Pixels{{{-2, 0}, 'x'}}));
  EXPECT_EXIT(matrix.matrixPixels_drawLineHorizontal({0, 0}, 0, 'x'), aborts, "at least 1, not 0");
}

TEST(MatrixTest, pictures) {
  Numbers matrix(12, 11);
  matrix[{11, 0}] = matrix[{0, 10}] = 1;
  EXPECT_EQ(matrix.description(), "Matrix(12,11)");
  std::string picture = "Matrix(12,11): (\n   012345678901\n 0:___________X\n";
  for (int y = 1; y < 10; ++y) picture += " " + std::to_string(y) + ":____________\n";
  EXPECT_EQ(matrix.debugDescription(), picture + "10:X___________\n)\n");
  EXPECT_EQ(Numbers().debugDescription(), "Matrix(0,0): (\n   \n)\n");
}

TEST(MatrixTest, walksKeepWhatTheyBeganWith) {
  Numbers matrix = numbered(2, 2);
  Int seen = 0;
  for (const auto place : matrix.makeSetCoordinateIterator()) {
    matrix.clear();
    seen += place.x + 2 * place.y;
  }
  EXPECT_EQ(seen, 0 + 1 + 2 + 3);
  auto walk = Numbers(1, 1).makeIterator();
  EXPECT_EQ(walk.next(), Optional<Optional<int>>(std::in_place, std::nullopt));
  EXPECT_TRUE(walk.next().isNone());
}

}  // namespace
