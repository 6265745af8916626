// The walks over a size, and what names them.
#include <csignal>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/Matrix/CoordinateIteratorType1.h>
#include <Tolvanite/Matrix/CoordinateIteratorType2.h>
#include <Tolvanite/Matrix/IterationPosition.h>
#include <Tolvanite/Matrix/MatrixCoordinateFactory.h>
#include <Tolvanite/Matrix/MatrixSize.h>

#include <tests/Support/ScriptedRandom.h>

using namespace tolvanite;
using tolvanite::test::ScriptedRandom;

namespace {

using Coordinates = std::vector<MatrixCoordinate>;
const auto aborts = testing::KilledBySignal(SIGABRT);

// No heap, no reference: a few integers.
static_assert(std::is_trivially_copyable_v<OrderedWalk> && sizeof(OrderedWalk) <= 64);
static_assert(std::is_trivially_copyable_v<CheckeredWalk> && sizeof(CheckeredWalk) <= 64);
static_assert(std::is_trivially_copyable_v<SpiralWalk> && sizeof(SpiralWalk) <= 64);

// "00 10 20": x and y of each.
template <typename Walk>
std::string shown(Walk&& walk) {
  std::string result;
  for (const MatrixCoordinate cell : walk) {
    if (!result.empty()) result += ' ';
    result += std::to_string(cell.x) + std::to_string(cell.y);
  }
  return result;
}

template <typename Walk>
Coordinates pulled(Walk walk) {
  Coordinates result;
  for (auto cell = walk.next(); cell.isSome(); cell = walk.next()) result.push_back(*cell);
  EXPECT_TRUE(walk.next().isNone()) << "the end is final";
  return result;
}

TEST(WalksTest, orders) {
  const MatrixSize size(3, 3);
  EXPECT_EQ(shown(size.coordinateIterator()), "00 10 20 01 11 21 02 12 22");
  EXPECT_EQ(shown(MatrixSize(5, 2).coordinateIterator_checkered(2)),
            "00 20 40 11 31 10 30 01 21 41");
  EXPECT_EQ(shown(MatrixSize(4, 4).coordinateIterator_checkered()),
            "00 30 11 22 03 33 10 21 02 32 13 20 01 31 12 23");
  EXPECT_EQ(shown(MatrixSize(2, 2).coordinateIterator_checkered(9)), "00 11 10 01");
  EXPECT_EQ(shown(MatrixSize(1, 3).coordinateIterator_checkered()), "00 01 02");
  EXPECT_EQ(shown(size.coordinateIterator_spiral()), "00 10 20 21 22 12 02 01 11");
  EXPECT_EQ(shown(size.coordinateIterator_spiral(true)), "00 01 02 12 22 21 20 10 11");
  for (const bool counterClockwise : {false, true}) {
    EXPECT_EQ(shown(MatrixSize(1, 4).coordinateIterator_spiral(counterClockwise)), "00 01 02 03");
    EXPECT_EQ(shown(MatrixSize(4, 1).coordinateIterator_spiral(counterClockwise)), "00 10 20 30");
  }
  EXPECT_EQ(shown(MatrixSize(2, 1).coordinateIterator_array({{7, 7}, {0, 0}, {1, 0}})), "77 00");
}

TEST(WalksTest, aRangeGoesOnWhereThePullsHaveStopped) {
  auto walk = MatrixSize(2, 2).coordinateIterator();
  EXPECT_EQ(walk.next(), MatrixCoordinate(0, 0));
  for (const MatrixCoordinate cell : walk) {
    EXPECT_EQ(cell, MatrixCoordinate(1, 0));
    break;
  }
  EXPECT_EQ(shown(walk), "01 11");
}

TEST(WalksTest, everyCellOnce) {
  using Walker = std::function<Coordinates(MatrixSize)>;
  std::vector<std::pair<std::string, Walker>> walkers{
      {"ordered", [](MatrixSize s) { return pulled(s.coordinateIterator()); }},
      {"spiral", [](MatrixSize s) { return pulled(s.coordinateIterator_spiral()); }},
      {"counter-clockwise", [](MatrixSize s) { return pulled(s.coordinateIterator_spiral(true)); }},
      {"outer line", [](MatrixSize s) { return pulled(s.coordinateIterator_randomOuterLine()); }},
      {"random", [](MatrixSize s) { return pulled(s.coordinateIterator_randomPrecalculated()); }},
  };
  for (Int step = 1; step <= 8; ++step) {
    walkers.emplace_back("checkered " + std::to_string(step), [=](MatrixSize s) {
      return pulled(s.coordinateIterator_checkered(step));
    });
  }
  for (const MatrixSize size : {MatrixSize(7, 5), {5, 7}, {1, 1}, {1, 6}, {6, 1}, {2, 2}, {6, 6}}) {
    const Coordinates all = pulled(size.coordinateIterator());
    for (const auto& [name, walk] : walkers) {
      for (int round = name == "outer line" ? 50 : 1; round > 0; --round) {
        ASSERT_THAT(walk(size), testing::UnorderedElementsAreArray(all)) << name << ' ' << size;
      }
    }
  }
  for (const MatrixSize none : {MatrixSize(0, 0), {0, 5}, {5, 0}, {-1, -2}}) {
    for (const auto& [name, walk] : walkers) {
      if (name == "outer line") continue;
      EXPECT_EQ(walk(none), Coordinates{}) << name << ' ' << none;
    }
    EXPECT_EQ(shown(none.coordinateIterator_array({})), "");
  }
}

TEST(WalksTest, randomOuterLineByItsDraws) {
  struct Row {
    MatrixSize size;
    std::deque<std::uint32_t> draws;
    std::string walk;
  };
  // The first draw is the rule for the right corners; then a corner and a coin for each line.
  // Corners: 0 top right, 1 top left, 2 bottom left, 3 bottom right; y grows upward.
  const std::vector<Row> rows{
      {{3, 2}, {1, 0, 0, 1, 1, 2, 0, 2, 1}, "21 20 01 11 00 10"},
      {{3, 2}, {0, 0, 0, 3, 0}, "21 11 01 20 10 00"},
      {{3, 2}, {1, 3, 0, 1, 0, 3, 1, 0, 1}, "20 21 01 00 10 11"},
      {{2, 2}, {1, 2, 1, 0, 1}, "00 10 11 01"},
      {{0, 0}, {1, 1, 1}, "0-1"},
      {{0, 0}, {1, 0, 0}, "-1-1"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.walk);
    std::vector<std::uint32_t> bounds{2};
    for (std::size_t i = 1; i < row.draws.size(); i += 2) bounds.insert(bounds.end(), {4, 2});
    ScriptedRandom random(row.draws);
    EXPECT_EQ(shown(row.size.coordinateIterator_randomOuterLine()), row.walk);
    EXPECT_EQ(random.bounds, bounds);
  }
}

TEST(WalksTest, randomShufflesTheIndexes) {
  ScriptedRandom random({3, 0, 1});
  EXPECT_EQ(shown(MatrixSize(2, 2).coordinateIterator_randomPrecalculated()), "11 10 00 01");
  EXPECT_EQ(random.bounds, (std::vector<std::uint32_t>{4, 3, 2}));
}

TEST(WalksDeathTest, impossibleWalks) {
  const MatrixSize size(3, 2);
  EXPECT_EXIT(static_cast<void>(size.coordinateIterator_checkered(0)), aborts, "Division by zero");
  EXPECT_EXIT(static_cast<void>(MatrixSize(0, 0).coordinateIterator_checkered(0)), aborts, "zero");
  auto shortList = size.coordinateIterator_array({{0, 0}});
  shortList.next();
  EXPECT_EXIT(shortList.next(), aborts, "Index 1 out of range, 1 elements: file .*WalksTest.cpp");
  EXPECT_EXIT(static_cast<void>(MatrixSize::max.coordinateIterator()), aborts, "overflow");
}

TEST(StrokedRectTest, indexesGoRound) {
  const auto round = [](MatrixSize size, Int count) {
    Coordinates cells;
    for (Int i = 0; i < count; ++i) cells.push_back(size.coordinateForStrokedRectIndex(i));
    return shown(cells);
  };
  EXPECT_EQ(MatrixSize(4, 3).countStrokedRect(), 10);
  EXPECT_EQ(round({4, 3}, 11), "00 10 20 30 31 32 22 12 02 01 00");
  EXPECT_EQ(MatrixSize(1, 4).countStrokedRect(), 6);
  EXPECT_EQ(round({1, 4}, 7), "00 01 02 03 02 01 00");
  EXPECT_EQ(MatrixSize(5, 1).countStrokedRect(), 5);
  EXPECT_EXIT(MatrixSize(5, 0).countStrokedRect(), aborts, "height of at least 1, not 0");
  EXPECT_EXIT(MatrixSize(4, 3).coordinateForStrokedRectIndex(11), aborts,
              "error: Index 11 in coordinateForStrokedRectIndex out of bounds\\.: file");
}

TEST(MatrixCoordinateFactoryTest, listsOfARect) {
  using Factory = MatrixCoordinateFactory;
  EXPECT_EQ(shown(Factory::rectFilled({2, 1}, {2, 3})), "21 31 22 32 23 33");
  EXPECT_EQ(shown(Factory::rectStroked({0, 0}, {3, 5})), "00 10 20 01 21 02 22 04 14 24");
  EXPECT_EQ(shown(Factory::rectStroked({2, 7}, {2, 6})), "27 37 23 33 212 312");
  EXPECT_EQ(shown(Factory::rectStroked({0, 0}, {2, 3})), "00 10 02 12");
  EXPECT_EQ(shown(Factory::rectStroked({5, 5}, {2, 2})), "55 65 56 66");
  EXPECT_EQ(shown(Factory::rectStroked({5, 5}, {2, 1})), "55 65");
  EXPECT_EXIT(Factory::rectStroked({2, 0}, {2, 4}), aborts, "Range ends before it starts: 3..<2");
  EXPECT_EXIT(Factory::rectFilled({0, 0}, {0, 1}), aborts, "sides of at least 1, not 0 x 1");
}

TEST(CoordinateIteratorTypeTest, namesOfWalks) {
  using One = CoordinateIteratorType1;
  for (const One type : One::all()) EXPECT_EQ(One::from(type.description()), type);
  EXPECT_EQ(One::from("RANDOMouterline"), One::randomOuterLine);
  EXPECT_TRUE(One::from("checkered-3").isNone());

  using Two = CoordinateIteratorType2;
  EXPECT_EQ(Two::some().size(), 12U);
  EXPECT_EQ(textForm(Two::some()[7]) + textForm(Two::some()[9]),
            "checkered-7spiralCounterClockwise");
  for (const Two& type : Two::some()) {
    const bool hasName = type != Two::spiral(false);
    EXPECT_EQ(Two::from(type.description()), hasName ? Optional<Two>(type) : Optional<Two>());
  }
  EXPECT_EQ(Two::from("Spiral"), Two::spiral(true));
  EXPECT_EQ(Two::from("Checkered-5"), Two::checkered(5));
  EXPECT_EQ(Two::from("checkered--5"), Two::checkered(-5));
  for (const char* text : {"checkered", "checkered-", "checkered-x", "checkered-1 ",
                           "checkered-+-1", "checkered-99999999999999999999", "orderly", ""}) {
    EXPECT_TRUE(Two::from(text).isNone()) << text;
  }
  EXPECT_EQ(Two::checkered(4).step(), 4);
  EXPECT_TRUE(Two::spiral(true).step().isNone() && Two::spiral(false).clockwise() == false);
}

TEST(IterationPositionTest, padsToThePlacesOfTheTotal) {
  IterationPosition position(6, 120);
  EXPECT_EQ(position.description(), "  7/120");
  position.setTotal(9);
  EXPECT_EQ(position.description(), "7/9");
  position.i = 99;
  EXPECT_EQ(position.description(), "100/9");
  EXPECT_EQ(IterationPosition(0).description(), "1/0");
  EXPECT_EQ(std::hash<IterationPosition>()(IterationPosition(5, 12)), 9U);
  EXPECT_EXIT(position.setTotal(-1), aborts, "No Int can hold -?nan");
}

}  // namespace
