// Tables for consoles and logs: typed rows, alignment, a title, and widths that are counted in
// characters as people see them.
#include <Tolvanite/Text/TextTable.h>

#include <iostream>
#include <string>
#include <vector>

using namespace tolvanite;

int main() {
  using Column = TextTable::Column;

  TextTable tracks({Column("#", Column::right), Column("title"), Column("minutes", Column::center),
                    Column("price", Column::right)},
                   "Tracks");
  tracks.addRow(1, "Overtüre", 7.5, Optional<double>(1.25));
  tracks.addRow(12, "Cafe\u0301 waltz", 3, Optional<double>());  // é of two code points
  tracks.addRow(107, "Finale");                                  // the missing values are empty
  std::cout << tracks << '\n';

  // Headers alone make left-aligned columns, and a range is a row of its values.
  TextTable votes({"anna", "ben", "carla"});
  for (const auto& round : std::vector<std::vector<int>>{{3, 1, 2}, {5, 0, 1}}) votes.addRow(round);
  std::cout << votes << '\n';

  votes.removeAllRows();
  std::cout << votes << '\n';

  // Other fences; `true` leaves the number of rows out.
  TextTable plain({"key", "value"});
  plain.columnFence = " ";
  plain.rowFence = "=";
  plain.cornerFence = " ";
  plain.addRow("volume", 7);
  plain.addRow("balance", -0.5);
  std::cout << plain.render(true) << '\n';
}
