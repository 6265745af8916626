#include <Tolvanite/Text/TextTable.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Frame/Unicode.h>

namespace {

using namespace tolvanite;
using Column = TextTable::Column;

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> result;
  for (std::string line; std::getline(stream, line);) result.push_back(line);
  return result;
}

TEST(TextTableTest, alignsValuesButNotHeaders) {
  TextTable table({Column("l"), Column("c", Column::center), Column("r", Column::right)}, "títle");
  table.addRow("left", "one", "right");
  table.addRow("👩‍👩‍👧", "four", "e\u0301");
  table.addRow("", "xy");
  EXPECT_EQ(table.render(),
            "+---------------------+\n"
            "| títle               |\n"
            "+---------------------+\n"
            "| l    | c    | r     |\n"
            "+---------------------+\n"
            "| left | one  | right |\n"
            "| 👩‍👩‍👧    | four |     e\u0301 |\n"
            "|      |  xy  |       |\n"
            "+---------------------+3");
}

TEST(TextTableTest, titlesAndEmptyTables) {
  TextTable table({"first", "second"}, "exactly this");
  const std::string rest =
      "+----------------+\n"
      "| first | second |\n"
      "+----------------+\n"
      "|  <no entries>  |\n"
      "+----------------+0";
  EXPECT_EQ(table.render(), "+----------------+\n| exactly this   |\n" + rest);
  table.header = "longer than the table";
  EXPECT_EQ(table.render(), "+----------------+\n| longer than the table |\n" + rest);
  table.header = "";
  EXPECT_EQ(table.render(), "+----------------+\n|                |\n" + rest);
}

TEST(TextTableTest, fencesOfOtherLengths) {
  TextTable table({"a"});
  table.addRow(1);
  table.rowFence = "=-";
  table.columnFence = "||";
  table.cornerFence = "";
  EXPECT_EQ(table.render(true), "=-=-=-\n|| a ||\n=-=-=-\n|| 1 ||\n=-=-=-");
  table.removeAllRows();
  EXPECT_EQ(textForm(table), "=-=-=-\n|| a ||\n=-=-=-\n||<no entries>||\n=-=-=-0");
}

TEST(TextTableTest, takesValuesOfAnyKind) {
  TextTable table({"a", "b", "c"});
  table.addRow(true, 2.5, Optional<std::string>());
  table.addRow({"x", "y", "z", "dropped"});
  table.addRow(std::vector<int>{7, 8});
  table.addRow(std::vector<bool>{false});
  table.addRow();
  table.addRow(1, std::vector<std::string>{"p", "q"});
  // A path is a range of its parts, but one value.
  table.addRow(std::filesystem::path("/p/q"));
  table.addRow({3, 4});
  const int plainArray[] = {5, 6};
  table.addRow(plainArray);
  using ::testing::ElementsAre;
  EXPECT_THAT(table.columns[0].values,
              ElementsAre("true", "x", "7", "false", "", "1", "\"/p/q\"", "3", "5"));
  EXPECT_THAT(table.columns[1].values,
              ElementsAre("2.5", "y", "8", "", "", "[\"p\", \"q\"]", "", "4", "6"));
  EXPECT_THAT(table.columns[2].values, ElementsAre("nil", "z", "", "", "", "", "", "", ""));
}

TEST(TextTableTest, theFirstColumnCountsTheRows) {
  TextTable table({"a", "b"});
  table.columns[0].values = {"1", "2"};
  table.columns[1].values = {"longest"};
  const auto lines = linesOf(table.render());
  EXPECT_EQ(lines[4], "| 2 |         |");
  EXPECT_TRUE(lines.back().ends_with("+2"));
  table.columns[0].values.clear();
  EXPECT_EQ(linesOf(table.render())[3], "|<no entries> |");
}

TEST(TextTableDeathTest, noColumns) {
  TextTable table(std::vector<std::string>{});
  table.addRow("dropped");
  EXPECT_DEATH(table.render(), "Fatal error: Negative repeat count: -1: file .*TextTable.cpp");
}

RC_GTEST_PROP(TextTableTest, allLinesAreOfOneLength, ()) {
  const auto text = rc::gen::element("", "a", "ß中", "e\u0301🇩🇪", "some longer text");
  std::vector<Column> columns;
  for (int i = *rc::gen::inRange(1, 5); i > 0; --i) {
    columns.emplace_back(*text, *rc::gen::element(Column::left, Column::center, Column::right));
  }
  TextTable table(columns);
  const int rows = *rc::gen::inRange(1, 6);
  for (int i = 0; i < rows; ++i) {
    table.addRow(*rc::gen::container<std::vector<std::string>>(
        rc::gen::map(text, [](const char* t) { return std::string(t); })));
  }
  const auto lines = linesOf(table.render(true));
  RC_ASSERT(lines.size() == static_cast<std::size_t>(rows) + 4);
  for (const auto& line : lines) RC_ASSERT(characterCount(line) == characterCount(lines[0]));
}

}  // namespace
