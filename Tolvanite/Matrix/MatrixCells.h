// Cells of a matrix in a line: a row or column as it is seen, or the whole storage. A random-access
// range of optional elements.
//
//   for (const auto& cell : matrix.row(0)) sum += cell.value_or(0);
//   const auto column = matrix.column(2);
//   if (column[0].isSome()) use(*column[0]);
#pragma once

#include <compare>
#include <cstddef>
#include <iterator>
#include <ranges>
#include <source_location>
#include <type_traits>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/detail/CellStorage.h>
#include <Tolvanite/Matrix/detail/MatrixLayout.h>

namespace tolvanite {

/// A look at the matrix it was taken from, as iterators are: it must not outlive the matrix or the
/// next change of it. Costs a few words, whatever its length.
template <typename Element>
class MatrixCells {
 public:
  using value_type = Optional<Element>;

  class Iterator {
   public:
    using iterator_concept = std::random_access_iterator_tag;
    /// `Optional<Element>` where a copy is as cheap as a reference, else a reference to the cell.
    using reference = detail::ReadCell<Element>;
    using iterator_category =
        std::conditional_t<std::is_reference_v<reference>, std::random_access_iterator_tag,
                           std::input_iterator_tag>;
    using value_type = Optional<Element>;
    using difference_type = std::ptrdiff_t;
    using pointer = void;

    Iterator() = default;
    reference operator*() const { return cells_.read(first_ + position_ * step_); }
    reference operator[](difference_type n) const { return *(*this + n); }
    Iterator& operator++() { return *this += 1; }
    Iterator& operator--() { return *this -= 1; }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++*this;
      return before;
    }
    Iterator operator--(int) {
      const Iterator before = *this;
      --*this;
      return before;
    }
    Iterator& operator+=(difference_type n) {
      position_ += n;
      return *this;
    }
    Iterator& operator-=(difference_type n) {
      position_ -= n;
      return *this;
    }
    friend Iterator operator+(Iterator i, difference_type n) { return i += n; }
    friend Iterator operator+(difference_type n, Iterator i) { return i += n; }
    friend Iterator operator-(Iterator i, difference_type n) { return i -= n; }
    friend difference_type operator-(const Iterator& a, const Iterator& b) {
      return a.position_ - b.position_;
    }
    friend bool operator==(const Iterator& a, const Iterator& b) {
      return a.position_ == b.position_;
    }
    friend std::strong_ordering operator<=>(const Iterator& a, const Iterator& b) {
      return a.position_ <=> b.position_;
    }

   private:
    friend class MatrixCells;
    Iterator(detail::CellReader<Element> cells, const detail::LineOfIndexes& line, Int position)
        : cells_(cells), first_(line.first), step_(line.step), position_(position) {}

    detail::CellReader<Element> cells_;
    Int first_ = 0;
    Int step_ = 0;
    Int position_ = 0;
  };
  using const_iterator = Iterator;

  /// A line without cells.
  MatrixCells() = default;
  /// @cond
  MatrixCells(detail::CellReader<Element> cells, detail::LineOfIndexes line)
      : cells_(cells), line_(line) {}
  /// @endcond

  /// The number of cells.
  Int count() const { return line_.count; }
  /// The same for the standard ranges.
  std::size_t size() const { return static_cast<std::size_t>(line_.count); }
  /// Whether the line has no cells; what the cells hold does not count.
  bool isEmpty() const { return line_.count == 0; }

  /// A cell. An index outside of the line is fatal.
  detail::ReadCell<Element> operator[](Int index) const {
    if (index < 0 || index >= line_.count) [[unlikely]] {
      fatalIndexOutOfRange(index, line_.count);
    }
    return cells_.read(line_.first + index * line_.step);
  }

  /// From the first cell to behind the last. The iterators outlive the line, but not the next
  /// change of the matrix.
  /// @{
  Iterator begin() const { return Iterator(cells_, line_, 0); }
  Iterator end() const { return Iterator(cells_, line_, line_.count); }
  /// @}

 private:
  detail::CellReader<Element> cells_;
  detail::LineOfIndexes line_;
};

}  // namespace tolvanite

/// @cond
template <typename Element>
inline constexpr bool std::ranges::enable_borrowed_range<tolvanite::MatrixCells<Element>> = true;
template <typename Element>
inline constexpr bool std::ranges::enable_view<tolvanite::MatrixCells<Element>> = true;
/// @endcond
