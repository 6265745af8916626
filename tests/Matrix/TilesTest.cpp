// Tiles in a frame, the grid, and counts of objects in a length.
#include <csignal>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Matrix/Grid.h>
#include <Tolvanite/Matrix/ObjectCounts.h>
#include <Tolvanite/Matrix/TileMatrixDescription.h>

using namespace tolvanite;

namespace {

using Tiles = TileMatrixDescription;
using Placement = Tiles::Placement;
const auto aborts = testing::KilledBySignal(SIGABRT);
const CGSize tile30(30, 30);

TEST(TileMatrixDescriptionTest, placesTheRemainder) {
  const CGSize frame(100, 70);
  struct Row {
    Placement placement;
    CGPoint origin;
  };
  for (const Row& row : std::vector<Row>{{Placement::centered, {5, 5}},
                                         {Placement::topLeft, {0, 10}},
                                         {Placement::bottomLeft, {0, 0}},
                                         {Placement::bottomRight, {10, 0}},
                                         {Placement::topRight, {10, 10}}}) {
    EXPECT_EQ(Tiles::from(frame, tile30, row.placement), Tiles({3, 2}, row.origin, tile30));
  }
  EXPECT_EQ(Tiles::from(frame, tile30, Placement::enlargeTiles),
            Tiles({3, 2}, {0, 0}, {30 + 10.0 / 3, 35}));
  EXPECT_EQ(Tiles::from({10, 100}, tile30, Placement::centered), Tiles({1, 3}, {0, 5}, tile30));
  EXPECT_EXIT(Tiles::from(frame, {0, 30}, Placement::centered), aborts,
              "No Int can hold inf: file .*TilesTest.cpp");
}

TEST(TileMatrixDescriptionTest, limitsTheNumberOfTiles) {
  const CGSize frame(100, 100);
  const auto atMost = [&](MatrixSize size) {
    return Tiles::fromMaxTileMatrixSize(frame, size, tile30, Placement::enlargeTiles);
  };
  EXPECT_EQ(atMost({2, 2}), Tiles({2, 2}, {0, 0}, {50, 50}));
  EXPECT_EQ(atMost({3, 9}).matrixSize, MatrixSize(3, 3));
  EXPECT_EQ(atMost({9, 1}), Tiles({1, 1}, {0, 0}, {100, 100}));
  const auto atLeast = [&](MatrixSize size) {
    return Tiles::fromMinTileMatrixSize(frame, size, tile30, Placement::bottomLeft);
  };
  EXPECT_EQ(atLeast({3, 3}).tileSize, tile30);
  EXPECT_EQ(atLeast({4, 1}), Tiles({4, 4}, {0, 0}, {25, 25}));
  EXPECT_EQ(atLeast({4, 5}), Tiles({5, 5}, {0, 0}, {20, 20}));
}

TEST(TileMatrixDescriptionTest, rectsRunFromTheTop) {
  const Tiles tiles({3, 3}, {0.5, 0}, {33.25, 33.25});
  EXPECT_EQ(tiles.rect(MatrixCoordinate(0, 0)), CGRect(0, 66, 34, 34));
  EXPECT_EQ(tiles.rect(MatrixCoordinate(2, 2)), CGRect(67, 0, 34, 34));
  EXPECT_EQ(tiles.rect(MatrixCoordinate(0, 2)), CGRect(0, 0, 34, 34)) << "floored all the same";
  EXPECT_EQ(tiles.rect(MatrixRect::ofEnds(1, 2, 1, 2)), CGRect(33, 33, 67, 67));
  EXPECT_EQ(tiles.tileQuaded().tileQuaded(), Tiles({12, 12}, {0.5, 0}, {8.3125, 8.3125}));
  EXPECT_EQ(tiles.description(),
            "TileMatrixDescription(3 * 3, origin=(0.5, 0), tileSize=(33.25, 33.25))");
}

TEST(GridTest, rectsAndPoints) {
  const Grid grid(CGSize(6, 7), CGSize(2, 3), NSEdgeInsets(1, 2, 2, 2), CGPoint(100, 200));
  EXPECT_EQ(grid.tileSize, CGSize(10, 10));
  EXPECT_EQ(grid.rectForCoordinate({2, 1}), CGRect(124, 213, 10, 10));
  EXPECT_EQ(grid.innerRectForCoordinate({2, 1}), CGRect(126, 214, 6, 7));
  EXPECT_EQ(grid.rect(MatrixSize(3, 2)), CGRect(100, 200, 34, 23));
  EXPECT_EQ(grid.coordinateForPoint({124, 213}), MatrixCoordinate(2, 1));
  EXPECT_EQ(grid.coordinateForPoint({99, 198}), Optional<MatrixCoordinate>());
  EXPECT_EQ(grid.coordinateForPoint({97, 196}), MatrixCoordinate(-1, -1));
  EXPECT_TRUE(grid.coordinateForPoint({110, 200}).isNone());
  EXPECT_TRUE(grid.coordinateForPoint({100, 212}).isNone());
  EXPECT_EQ(grid.description(),
            "Grid(tileSize:(10, 10), tileSpacing:(2, 3), tilePadding:NSEdgeInsets(top: 1, left: 2, "
            "bottom: 2, right: 2))");
  EXPECT_EXIT(grid.coordinateForPoint({1e300, 0}), aborts, "No Int can hold");
  EXPECT_EXIT(Grid().coordinateForPoint({0, 0}), aborts, "No Int can hold -?nan");
}

TEST(GridTest, hitsAndCounts) {
  using Area = GridHitArea;
  const std::vector<std::pair<double, Area>> hits{{0, Area::tile(0)},      {9.5, Area::tile(0)},
                                                  {10, Area::spacing(0)},  {12, Area::tile(1)},
                                                  {-1, Area::spacing(-1)}, {-3, Area::tile(-1)}};
  for (const auto& [place, area] : hits) EXPECT_EQ(Grid::hitTest(place, 10, 2), area) << place;

  const Grid grid(CGSize(10, 10), CGSize(2, 2));
  const std::vector<std::pair<double, Int>> columns{{-5, 0}, {0, 0},  {9, 0},  {10, 1},
                                                    {12, 1}, {21, 1}, {22, 2}, {34, 3}};
  for (const auto& [width, count] : columns) {
    EXPECT_EQ(grid.numberOfColumnsThatFitIntoWidth(width), count) << width;
    EXPECT_EQ(divide2(static_cast<Int>(width), 10, 2), count) << width;
  }
  using Counts = std::pair<Int, Int>;
  EXPECT_EQ(grid.numberOfRowsAndColumnsThatFitIntoSize({34, 22}), Counts(3, 2));
  EXPECT_EQ(grid.numberOfRowsAndColumnsThatFitIntoSize({34, 0}), Counts(0, 0));
  EXPECT_EQ(width2(3, 10, 2), 34);
  EXPECT_EQ(bucketCount(0, 0), 0);
  EXPECT_EQ(bucketCount(6, 3), 2);
  EXPECT_EQ(bucketCount(7, 3), 3);
}

TEST(GridTest, aSelectionTakesTheTilesItTouches) {
  const Grid grid(CGSize(10, 10), CGSize(2, 2), {}, CGPoint(100, 0));
  struct Row {
    CGRect selection;
    Optional<MatrixRect> tiles;
  };
  const auto columns = [](Int first, Int last) { return MatrixRect::ofEnds(first, last, 0, 0); };
  const std::vector<Row> rows{
      {{105, 5, 10, 0}, columns(0, 1)},
      {{110.5, 5, 5, 2}, columns(1, 1)},
      {{105, 5, 17, 2}, columns(0, 1)},
      {{110.5, 5, 1, 2}, {}},
      {{105, 5, 19, 2}, columns(0, 2)},
      {{110, 5, 12, 2}, columns(1, 1)},
      {{115, 7, -10, -2}, columns(0, 1)},  // dragged leftward and downward
      {{112, 5, 0, 0}, columns(1, 1)},     // a click on the first point of a tile
      {{105, 10.5, 10, 1}, {}},            // in a gap on one axis only
      {{95, -30, 1, 60}, MatrixRect::ofEnds(-1, -1, -3, 2)},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(grid.extendOfRect(row.selection), row.tiles) << row.selection;
  }
  EXPECT_EXIT(grid.extendOfRect({0, 0, std::numeric_limits<double>::quiet_NaN(), 0}), aborts,
              "No Int can hold");
}

}  // namespace
