#include <Tolvanite/Text/TextTable.h>

#include <algorithm>
#include <ostream>
#include <utility>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

namespace {

using Alignment = TextTable::Column::Alignment;

void appendRepeated(std::string& out, std::string_view text, Int count) {
  if (count < 0) fatalFailure("Negative repeat count: " + std::to_string(count));
  for (Int i = 0; i < count; ++i) out += text;
}

// The text in a field of `width` characters; whole if it is longer.
void appendPadded(std::string& out, std::string_view text, Int width, Alignment align) {
  const Int blanks = std::max<Int>(0, width - characterCount(text));
  Int before = 0;
  if (align == Alignment::center) before = blanks / 2;
  if (align == Alignment::right) before = blanks;
  out.append(static_cast<std::size_t>(before), ' ');
  out += text;
  out.append(static_cast<std::size_t>(blanks - before), ' ');
}

// One rendering of a table, with the widths counted once.
class Rendering {
 public:
  explicit Rendering(const TextTable& table) : table_(table) {
    for (const auto& column : table.columns) {
      widths_.push_back(column.width());
      total_ += widths_.back() + 3;
    }
    rule_ = table.cornerFence;
    appendRepeated(rule_, table.rowFence, total_ - 2);
    rule_ += table.cornerFence;
  }

  std::string text(bool hideCount) {
    const std::size_t rowCount = table_.columns.front().values.size();
    if (table_.header) appendTitle(*table_.header);
    out_ += rule_ + '\n';
    appendHeadings();
    out_ += rule_ + '\n';
    for (std::size_t row = 0; row < rowCount; ++row) appendRow(row);
    if (rowCount == 0) appendNoEntries();
    out_ += rule_;
    if (!hideCount) out_ += std::to_string(rowCount);
    return std::move(out_);
  }

 private:
  void appendTitle(std::string_view title) {
    out_ += rule_ + '\n' + table_.columnFence + ' ';
    appendPadded(out_, title, total_ - 4, Alignment::left);
    out_ += ' ' + table_.columnFence + '\n';
  }

  void appendHeadings() {
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
      appendCell(table_.columns[i].header, widths_[i], Alignment::left);
    }
    out_ += table_.columnFence + '\n';
  }

  void appendRow(std::size_t row) {
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
      const auto& column = table_.columns[i];
      const bool hasValue = row < column.values.size();
      appendCell(hasValue ? std::string_view(column.values[row]) : "", widths_[i], column.align);
    }
    out_ += table_.columnFence + '\n';
  }

  void appendNoEntries() {
    out_ += table_.columnFence;
    appendPadded(out_, "<no entries>", total_ - 2, Alignment::center);
    out_ += table_.columnFence + '\n';
  }

  void appendCell(std::string_view text, Int width, Alignment align) {
    out_ += table_.columnFence + ' ';
    appendPadded(out_, text, width, align);
    out_ += ' ';
  }

  const TextTable& table_;
  std::vector<Int> widths_;
  Int total_ = 1;
  std::string rule_;
  std::string out_;
};

}  // namespace

Int TextTable::Column::width() const {
  Int result = characterCount(header);
  for (const auto& value : values) result = std::max(result, characterCount(value));
  return result;
}

TextTable::TextTable(const std::vector<std::string>& headers, Optional<std::string> title)
    : columns(headers.begin(), headers.end()), header(std::move(title)) {}

TextTable::TextTable(std::initializer_list<std::string_view> headers, Optional<std::string> title)
    : TextTable(std::vector<std::string>(headers.begin(), headers.end()), std::move(title)) {}

void TextTable::appendRow(std::vector<std::string> texts) {
  texts.resize(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) columns[i].values.push_back(std::move(texts[i]));
}

void TextTable::removeAllRows() {
  for (auto& column : columns) column.values.clear();
}

std::string TextTable::render(bool hideCount) const { return Rendering(*this).text(hideCount); }

std::ostream& operator<<(std::ostream& out, const TextTable& table) {
  return out << table.render();
}

}  // namespace tolvanite
