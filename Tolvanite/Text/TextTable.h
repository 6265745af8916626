// Rows of printable values as a box of fixed-width text, for consoles and logs.
//
//   TextTable table({TextTable::Column("a"), TextTable::Column("bb", TextTable::Column::right)});
//   table.addRow(1, 2);
//   table.addRow(33, "4");
//   std::cout << table << '\n';
//
//   +---------+
//   | a  | bb |
//   +---------+
//   | 1  |  2 |
//   | 33 |  4 |
//   +---------+2
//
// The number behind the last rule counts the rows. Widths are counted in user-perceived
// characters.
#pragma once

#include <concepts>
#include <initializer_list>
#include <iosfwd>
#include <ranges>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

namespace detail {

// A range that stands for the values of a row, rather than being one value itself, as a path is.
template <typename T>
concept RowOfValues =
    std::ranges::input_range<const T> && !TextLike<T> && !Describes<T> &&
    (std::is_array_v<T> || !Streams<T>) && HasTextForm<std::ranges::range_value_t<const T>>;

}  // namespace detail

class TOLVANITE_EXPORT TextTable {
 public:
  /// A column with its own cells.
  class TOLVANITE_EXPORT Column {
   public:
    /// Where values stand in their cells.
    enum class Alignment { left, center, right };
    using enum Alignment;

    /// A column without values.
    explicit Column(std::string heading, Alignment alignment = left)
        : header(std::move(heading)), align(alignment) {}

    /// The length of the longest text of the column, the header's included. Linear in the column.
    Int width() const;

    friend bool operator==(const Column&, const Column&) = default;

    /// The column's heading.
    std::string header;
    /// Where the values stand in their cells. The header always stands left.
    Alignment align;
    /// One text a row.
    std::vector<std::string> values;
  };

  /// A table of these columns, with an optional title.
  /// @{
  explicit TextTable(std::vector<Column> ownColumns, Optional<std::string> title = {})
      : columns(std::move(ownColumns)), header(std::move(title)) {}
  explicit TextTable(std::initializer_list<Column> ownColumns, Optional<std::string> title = {})
      : columns(ownColumns), header(std::move(title)) {}
  /// @}

  /// A table with a left-aligned column for each of these headers, and an optional title.
  /// @{
  explicit TextTable(const std::vector<std::string>& headers, Optional<std::string> title = {});
  explicit TextTable(std::initializer_list<std::string_view> headers,
                     Optional<std::string> title = {});
  /// @}

  /// Adds a row of the values' text forms. Missing values are empty texts, and values beyond the
  /// number of columns are dropped.
  template <HasTextForm... Values>
  void addRow(const Values&... values) {
    appendRow({textForm(values)...});
  }

  /// Adds a row of the text forms of a range's elements, in the same way.
  /// @{
  template <detail::RowOfValues Range>
  void addRow(const Range& values) {
    std::vector<std::string> texts;
    if constexpr (std::ranges::sized_range<const Range>) texts.reserve(std::ranges::size(values));
    for (const auto& value : values) {
      texts.push_back(textForm<std::ranges::range_value_t<const Range>>(value));
    }
    appendRow(std::move(texts));
  }
  template <HasTextForm Value>
  void addRow(std::initializer_list<Value> values) {
    addRow<std::initializer_list<Value>>(values);
  }
  void addRow(std::initializer_list<std::string_view> values) {
    appendRow({values.begin(), values.end()});
  }
  /// @}

  /// Empties the columns.
  void removeAllRows();

  /// The table as lines that are joined by line feeds, without one at the end. The number of rows
  /// is that of the first column's values. `hideCount` leaves the number behind the last rule out.
  /// A table without columns is fatal. Linear in the table's text.
  std::string render(bool hideCount = false) const;

  /// The rendered table.
  std::string description() const { return render(); }
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const TextTable& table);

  friend bool operator==(const TextTable&, const TextTable&) = default;

  /// The columns with their cells.
  std::vector<Column> columns;
  /// Stands between the cells of a row, and at both of its ends.
  std::string columnFence = "|";
  /// Repeated to make a rule. The rule has as many of it as a row of usual fences has characters.
  std::string rowFence = "-";
  /// Stands at both ends of a rule.
  std::string cornerFence = "+";
  /// The title above the columns.
  Optional<std::string> header;

 private:
  void appendRow(std::vector<std::string> texts);
};

}  // namespace tolvanite
