// A two-dimensional grid of cells, each of which holds an element or nothing. It can be viewed
// through a rotation or flip without moving a cell, and counts its filled cells itself.
//
//   Matrix<char> board(3, 2);
//   board[{0, 0}] = 'x';
//   board.setTransform(TransformationMatrix::makeDirection(
//       TransformationMatrix::Direction::left, board.originalSize()));
//   board.size();                                              // now 2 wide and 3 high
//   board[{1, 0}] == 'x';                                      // that is where (0, 0) is seen
//   for (const auto& row : board.rows()) {
//     for (const auto& cell : row) std::cout << cell.value_or('.');
//   }
//
// Coordinates are those of the visible cells. A copy of a matrix costs no copy of its cells until
// one of the two is written.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <ostream>
#include <ranges>
#include <source_location>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCell.h>
#include <Tolvanite/Matrix/MatrixCells.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/MatrixPixel.h>
#include <Tolvanite/Matrix/MatrixRect.h>
#include <Tolvanite/Matrix/MatrixSize.h>
#include <Tolvanite/Matrix/MatrixWalks.h>
#include <Tolvanite/Matrix/TransformationMatrix.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>
#include <Tolvanite/Matrix/detail/CellPlace.h>
#include <Tolvanite/Matrix/detail/CellStorage.h>
#include <Tolvanite/Matrix/detail/MatrixLayout.h>
#include <Tolvanite/Matrix/detail/MatrixTexts.h>
#include <Tolvanite/Platform/SystemRandom.h>
#include <Tolvanite/Random/RandomInt.h>

namespace tolvanite {

/// A value type with copy-on-write cells. A coordinate outside of the visible size is fatal
/// everywhere: "Coordinate out of bounds: MatrixCoordinate(X, Y) (MatrixSize(W, H))".
///
/// As a range it is its storage: all cells row by row in the original orientation, whatever the
/// transform.
template <typename Element>
class Matrix {
 public:
  using value_type = Optional<Element>;
  /// What reading a cell gives: `Optional<Element>` where a copy is as cheap as a reference, else
  /// `const Optional<Element>&`.
  using ReadCell = detail::ReadCell<Element>;

  /// A matrix without cells.
  Matrix() = default;
  /// All cells hold `repeatedValue`, or nothing. They do not count in `fillCount`, deliberately.
  /// @{
  explicit Matrix(MatrixSize matrixSize, const Optional<Element>& repeatedValue = {},
                  std::source_location location = std::source_location::current())
      : storage_(matrixSize.count(location), repeatedValue, location),
        layout_(matrixSize, location) {}
  Matrix(Int columns, Int rows, const Optional<Element>& repeatedValue = {},
         std::source_location location = std::source_location::current())
      : Matrix(MatrixSize(columns, rows), repeatedValue, location) {}
  /// @}

  Matrix(const Matrix&) = default;
  Matrix& operator=(const Matrix&) = default;
  /// Leaves a matrix without cells behind.
  /// @{
  Matrix(Matrix&& other) noexcept
      : storage_(std::move(other.storage_)),
        layout_(std::exchange(other.layout_, {})),
        fillCount_(std::exchange(other.fillCount_, 0)) {}
  Matrix& operator=(Matrix&& other) noexcept {
    storage_ = std::move(other.storage_);
    layout_ = std::exchange(other.layout_, {});
    fillCount_ = std::exchange(other.fillCount_, 0);
    return *this;
  }
  /// @}
  ~Matrix() = default;

  // Cells

  /// A cell to read: `matrix[coordinate]` or `matrix[{x, y}]`.
  ReadCell operator[](detail::CellPlace place) const {
    return storage_.read(layout_.storageIndex(place.coordinate, place.location));
  }
  /// A cell to read or write.
  MatrixCell<Element> operator[](detail::CellPlace place) {
    static_cast<void>(layout_.storageIndex(place.coordinate, place.location));
    return MatrixCell<Element>(*this, place);
  }
  /// Writes a cell. Absent to value counts 1 more in `fillCount`, value to absent 1 less. Linear in
  /// the cells if they are shared with a copy.
  void set(detail::CellPlace place, Optional<Element> value) {
    const Int index = layout_.storageIndex(place.coordinate, place.location);
    fillCount_ += Int{value.has_value()} - Int{storage_.isFilled(index)};
    storage_.write(index, std::move(value));
  }

  /// The cell of the storage at that index; absent behind the last. A negative index is fatal.
  Optional<Element> rawIndex(
      Int index, std::source_location location = std::source_location::current()) const {
    if (index < 0) fatalIndexOutOfRange(index, storage_.count(), location);
    return index < storage_.count() ? storage_.read(index) : Optional<Element>();
  }
  /// The storage, row by row in the original orientation.
  MatrixCells<Element> array() const {
    return {storage_.reader(), {.first = 0, .step = 1, .count = storage_.count()}};
  }
  /// The cells of `array()`. Good until the matrix is changed or ends.
  /// @{
  auto begin() const { return array().begin(); }
  auto end() const { return array().end(); }
  /// @}

  /// A visible row or column. The fastest way to read them all.
  /// @{
  MatrixCells<Element> row(Int y,
                           std::source_location location = std::source_location::current()) const {
    return {storage_.reader(), layout_.row(y, location)};
  }
  MatrixCells<Element> column(
      Int x, std::source_location location = std::source_location::current()) const {
    return {storage_.reader(), layout_.column(x, location)};
  }
  /// @}
  /// All visible rows, from y = 0 on.
  auto rows(std::source_location location = std::source_location::current()) const {
    return std::views::iota(Int{0}, std::max(size().height, Int{0})) |
           std::views::transform([this, location](Int y) { return row(y, location); });
  }

  // Counts

  /// The number of cells that were set to a value and not since to absent, one by one. Values that
  /// the matrix was made with are not among them, deliberately, so that clearing such a cell leads
  /// below 0.
  Int fillCount() const { return fillCount_; }
  /// The number of cells less `fillCount`.
  Int freeCount() const { return checkedSubtract(size().count(), fillCount_); }
  /// `fillCount` as hundredths of the cells; no number if there are none.
  double fillPercentage() const {
    return static_cast<double>(fillCount_) / static_cast<double>(size().count()) * 100;
  }
  /// Whether `fillCount` is 0.
  bool isEmpty() const { return fillCount_ == 0; }
  /// Whether `fillCount` is the number of cells.
  bool isFull() const { return fillCount_ == size().count(); }

  // View

  /// The size of the storage.
  const MatrixSize& originalSize() const { return layout_.originalSize(); }
  /// The cells of the storage.
  MatrixRect originalRect() const { return {MatrixCoordinate::zero, originalSize()}; }
  /// The visible size: the original one, or its sides exchanged behind a quarter turn.
  const MatrixSize& size() const { return layout_.size(); }
  /// From storage coordinates to visible ones.
  const TransformationMatrix& transform() const { return layout_.transform(); }
  /// From visible coordinates to those of the storage.
  const TransformationMatrix& inverseTransform() const { return layout_.inverseTransform(); }
  /// Views the cells through `transform`, of the cells of the storage. Moves none of them, and
  /// costs the same for any size. A transform without inverse is fatal. One that leads out of the
  /// storage makes the access to such cells fatal.
  void setTransform(const TransformationMatrix& transform,
                    std::source_location location = std::source_location::current()) {
    layout_.setTransform(transform, location);
  }
  /// Whether the coordinate is that of a visible cell.
  bool containsCoordinate(MatrixCoordinate coordinate) const { return size().contains(coordinate); }

  // Searches

  /// A visible cell, all equally likely. Draws x, then y. A side of 0 is fatal: "maxValue has to be
  /// at least 1".
  MatrixCoordinate randomCoordinate(
      std::source_location location = std::source_location::current()) const {
    return size().randomCoordinate(location);
  }
  /// A cell that passes the test, which is given what the cell holds; absent if none does. Draws a
  /// coordinate; if that does not pass, a storage index and a coin, and looks at the storage from
  /// there: if the coin is not 0 the part below first, downward, then the part above, upward; else
  /// the other way round.
  template <std::predicate<const Optional<Element>&> Test>
  Optional<MatrixCoordinate> randomCoordinateWithCondition(
      Test&& test, std::source_location location = std::source_location::current()) const;
  /// A cell that holds a value.
  Optional<MatrixCoordinate> randomNonEmptyCoordinate(
      std::source_location location = std::source_location::current()) const {
    return randomCoordinateWithCondition(&Optional<Element>::isSome, location);
  }
  /// A cell that holds none.
  Optional<MatrixCoordinate> randomEmptyCoordinate(
      std::source_location location = std::source_location::current()) const {
    return randomCoordinateWithCondition(&Optional<Element>::isNone, location);
  }

  /// The first cell of the storage that passes the test, which is given what the cell holds; absent
  /// if none does. A step of n takes every n-th index from 0 on, then every n-th from 1 on, and so
  /// forth; one of 0 finds nothing, and a negative one is fatal.
  /// @{
  template <std::predicate<const Optional<Element>&> Test>
  Optional<MatrixCoordinate> firstCoordinateWithCondition(
      Int checkeredStep, Test&& test,
      std::source_location location = std::source_location::current()) const;
  template <std::predicate<const Optional<Element>&> Test>
  Optional<MatrixCoordinate> firstCoordinateWithCondition(
      Test&& test, std::source_location location = std::source_location::current()) const {
    return firstCoordinateWithCondition(1, std::forward<Test>(test), location);
  }
  /// @}

  // Filling and drawing

  /// Takes over the cells of `other`, absent ones included, where the two have coordinates in
  /// common. The other cells stay, or become absent with `nilOutRest`. Prints a line first.
  void fillWithMatrix(const Matrix& other, bool nilOutRest = false);

  /// Sets each cell, row by row, to what `elementProvider` gives, with a probability of `percent`
  /// hundredths, or to absent. Draws a number below 100000 for each cell, so the count of filled
  /// cells is random itself. Prints a line first, and one at the end. A `percent` below 5 is fatal,
  /// deliberately.
  template <std::invocable Provider>
    requires std::convertible_to<std::invoke_result_t<Provider&>, Optional<Element>>
  void fillWithPercent(double percent, Provider&& elementProvider,
                       std::source_location location = std::source_location::current());

  /// Sets the cells, row by row, to the elements of the pattern over and over. `fillCount` is the
  /// number of all cells afterwards, even if the pattern holds absent ones, deliberately. An empty
  /// pattern is fatal if there are cells.
  /// @{
  template <std::ranges::random_access_range Pattern>
    requires std::convertible_to<std::ranges::range_reference_t<const Pattern>, Optional<Element>>
  void fillWithPattern(const Pattern& pattern,
                       std::source_location location = std::source_location::current());
  void fillWithPattern(std::initializer_list<Optional<Element>> pattern,
                       std::source_location location = std::source_location::current()) {
    fillWithPattern<std::initializer_list<Optional<Element>>>(pattern, location);
  }
  /// @}

  /// Makes all cells absent.
  void clear(std::source_location location = std::source_location::current()) {
    storage_ = detail::CellStorage<Element>(size().count(location), {}, location);
    fillCount_ = 0;
  }

  /// Sets the cells of the rect, row by row.
  void fill(const MatrixRect& rect, const Optional<Element>& with,
            std::source_location location = std::source_location::current()) {
    for (const MatrixCoordinate cell : rect) set({cell, location}, with);
  }

  /// Sets the cells of the rect's outline: the start row, left and right of each row between, the
  /// end row. A rect without columns does nothing; one of fewer than three rows is fatal.
  void draw(const MatrixRect& rect, const Optional<Element>& with,
            std::source_location location = std::source_location::current());

  /// Sets `length` cells from `origin` rightward. A length below 1 does nothing.
  void drawLineHorizontal(MatrixCoordinate origin, Int length, const Optional<Element>& with,
                          std::source_location location = std::source_location::current()) {
    if (length < 1) return;
    walkRightward(origin, length, location,
                  [&](MatrixCoordinate cell) { set({cell, location}, with); });
  }
  /// Sets cells from `origin` rightward to the elements of a sequence, one a cell, as long as there
  /// are elements and visible cells. An origin outside of the matrix is fatal, unless there is no
  /// element.
  /// @{
  template <std::ranges::input_range Elements>
    requires std::convertible_to<std::ranges::range_reference_t<Elements>, Optional<Element>>
  void drawLineHorizontal2(MatrixCoordinate origin, Elements&& with,
                           std::source_location location = std::source_location::current());
  void drawLineHorizontal2(MatrixCoordinate origin, std::initializer_list<Element> with,
                           std::source_location location = std::source_location::current()) {
    drawLineHorizontal2<std::initializer_list<Element>&>(origin, with, location);
  }
  /// @}
  /// The cells that `drawLineHorizontal` would set, each with the element; sets none and does not
  /// ask for visible ones. Ends early where the next coordinate has a negative field. A length
  /// below 1 is fatal.
  std::vector<MatrixPixel<Element>> matrixPixels_drawLineHorizontal(
      MatrixCoordinate origin, Int length, const Element& with,
      std::source_location location = std::source_location::current()) const;

  // Walks and texts

  /// All cells of the storage, absent ones included, whatever the transform, as a walk that is
  /// pulled by `next()`. The walk keeps the cells as they are now.
  RawCellWalk<Element> makeIterator() const { return RawCellWalk<Element>(storage_); }
  /// The visible coordinates of all cells that hold a value, in the order of the storage, as such a
  /// walk.
  SetCoordinateWalk<Element> makeSetCoordinateIterator(
      std::source_location location = std::source_location::current()) const {
    return SetCoordinateWalk<Element>(storage_, layout_, location);
  }

  /// "Matrix(WIDTH,HEIGHT)".
  std::string description() const { return detail::matrixDescription(size()); }
  /// A picture with a line for each row: "X" for a cell that holds a value, "_" for another.
  std::string debugDescription() const {
    return detail::matrixPicture(size(), [this](MatrixCoordinate cell) { return isFilled(cell); });
  }

  /// Checks that every cell of the storage is seen where the transform leads it, and is found again
  /// from there; if not, prints the picture and is fatal. For tests of transforms.
  void testTranformationCalculation(
      std::source_location location = std::source_location::current()) const
    requires std::equality_comparable<Element>;

  /// Whether both show the same cells: `fillCount` and the way the cells are stored do not count.
  friend bool operator==(const Matrix& a, const Matrix& b)
    requires std::equality_comparable<Element>
  {
    if (a.size() != b.size()) return false;
    if (a.storage_.isSameAs(b.storage_) && a.transform() == b.transform()) return true;
    for (Int y = 0; y < a.size().height; ++y) {
      if (!std::ranges::equal(a.row(y), b.row(y))) return false;
    }
    return true;
  }
  friend std::ostream& operator<<(std::ostream& out, const Matrix& matrix) {
    return out << matrix.description();
  }

 private:
  bool isFilled(MatrixCoordinate coordinate) const {
    return storage_.isFilled(layout_.storageIndex(coordinate, std::source_location::current()));
  }

  // Calls `block` for the cells from `origin` rightward, and ends where a field is negative.
  template <typename Block>
  static void walkRightward(MatrixCoordinate origin, Int length, std::source_location location,
                            Block block) {
    Optional<MatrixCoordinate> cell = origin;
    for (Int i = 0; cell.isSome(); ++i) {
      block(*cell);
      if (i + 1 >= length) return;
      cell = cell->coordinateMovedBy(1, 0, location);
    }
  }

  detail::CellStorage<Element> storage_;
  detail::MatrixLayout layout_;
  Int fillCount_ = 0;
};

template <typename Element>
template <std::predicate<const Optional<Element>&> Test>
Optional<MatrixCoordinate> Matrix<Element>::randomCoordinateWithCondition(
    Test&& test, std::source_location location) const {
  // By reference, as the test was promised: it need not take a temporary.
  const auto accepts = [&](const Optional<Element>& cell) { return std::invoke(test, cell); };
  const MatrixCoordinate drawn = randomCoordinate(location);
  if (accepts((*this)[{drawn, location}])) return drawn;
  const Int start = RandomInt::random(size().count(location) - 1, location);
  const bool lowerFirst = systemRandom().uniform(2) != 0;
  const auto passes = [&](Int index) { return accepts(storage_.read(index)); };
  Int found = -1;
  const auto lookBelow = [&] {
    found = start - 1;
    while (found >= 0 && !passes(found)) --found;
    return found >= 0;
  };
  const auto lookAbove = [&] {
    found = start;
    while (found < storage_.count() && !passes(found)) ++found;
    return found < storage_.count();
  };
  if (lowerFirst ? lookBelow() || lookAbove() : lookAbove() || lookBelow()) {
    return layout_.coordinateForRawIndex(found, location);
  }
  return {};
}

template <typename Element>
template <std::predicate<const Optional<Element>&> Test>
Optional<MatrixCoordinate> Matrix<Element>::firstCoordinateWithCondition(
    Int checkeredStep, Test&& test, std::source_location location) const {
  if (checkeredStep < 0) fatalFailure("A checkered step is not negative", location);
  const Int count = storage_.count();
  // Offsets from the count on have no index.
  for (Int offset = 0; offset < std::min(checkeredStep, count); ++offset) {
    for (Int index = offset;; index += checkeredStep) {
      const Optional<Element>& cell = storage_.read(index);
      if (std::invoke(test, cell)) {
        return layout_.coordinateForRawIndex(index, location);
      }
      if (checkeredStep >= count - index) break;
    }
  }
  return {};
}

template <typename Element>
void Matrix<Element>::fillWithMatrix(const Matrix& other, bool nilOutRest) {
  printLine(description() + " fillWithMatrix " + other.description());
  for (const MatrixCoordinate cell : size().coordinateIterator()) {
    if (other.containsCoordinate(cell)) {
      set(cell, other[cell]);
    } else if (nilOutRest) {
      set(cell, {});
    }
  }
}

template <typename Element>
template <std::invocable Provider>
  requires std::convertible_to<std::invoke_result_t<Provider&>, Optional<Element>>
void Matrix<Element>::fillWithPercent(double percent, Provider&& elementProvider,
                                      std::source_location location) {
  if (percent < 5.0) {
    fatalFailure("fillWithPercent needs at least 5 percent, not " + textForm(percent), location);
  }
  detail::printFilling(size(), percent);
  const Int threshold = detail::intFrom(percent / 100.0 * 100000.0, location);
  if (threshold > Int{std::numeric_limits<std::uint32_t>::max()}) fatalOverflow(location);
  for (const MatrixCoordinate cell : size().coordinateIterator(location)) {
    const bool isFilled = Int{systemRandom().uniform(100000)} < threshold;
    set({cell, location}, isFilled ? Optional<Element>(elementProvider()) : Optional<Element>());
  }
  detail::printFilled(size(), fillCount_);
}

template <typename Element>
template <std::ranges::random_access_range Pattern>
  requires std::convertible_to<std::ranges::range_reference_t<const Pattern>, Optional<Element>>
void Matrix<Element>::fillWithPattern(const Pattern& pattern, std::source_location location) {
  const auto length = std::ranges::distance(pattern);
  if (length == 0 && size().count(location) != 0) {
    fatalFailure("fillWithPattern needs a pattern", location);
  }
  auto place = length;
  for (const MatrixCoordinate cell : size().coordinateIterator(location)) {
    if (place == length) place = 0;
    set({cell, location}, std::ranges::begin(pattern)[place++]);
  }
  fillCount_ = size().count(location);
}

template <typename Element>
void Matrix<Element>::draw(const MatrixRect& rect, const Optional<Element>& with,
                           std::source_location location) {
  if (rect.endColumn < rect.startColumn) return;
  const auto drawRow = [&](Int y) {
    fill(MatrixRect::ofEnds(rect.startColumn, rect.endColumn, y, y, location), with, location);
  };
  drawRow(rect.startRow);
  if (rect.height(location) < 3) {
    fatalFailure("The outline of a rect needs three rows: " + rect.description(), location);
  }
  for (Int y = rect.startRow + 1; y < rect.endRow; ++y) {
    set({{rect.startColumn, y}, location}, with);
    set({{rect.endColumn, y}, location}, with);
  }
  drawRow(rect.endRow);
}

template <typename Element>
template <std::ranges::input_range Elements>
  requires std::convertible_to<std::ranges::range_reference_t<Elements>, Optional<Element>>
void Matrix<Element>::drawLineHorizontal2(MatrixCoordinate origin, Elements&& with,
                                          std::source_location location) {
  Optional<MatrixCoordinate> cell = origin;
  for (auto&& element : with) {
    set({*cell, location}, std::forward<decltype(element)>(element));
    cell = cell->coordinateMovedBy(1, 0, size(), {}, location);
    if (cell.isNone()) return;
  }
}

template <typename Element>
std::vector<MatrixPixel<Element>> Matrix<Element>::matrixPixels_drawLineHorizontal(
    MatrixCoordinate origin, Int length, const Element& with, std::source_location location) const {
  if (length < 1) {
    fatalFailure("A line of pixels needs a length of at least 1, not " + textForm(length),
                 location);
  }
  std::vector<MatrixPixel<Element>> pixels;
  walkRightward(origin, length, location,
                [&](MatrixCoordinate cell) { pixels.push_back({cell, with}); });
  return pixels;
}

template <typename Element>
void Matrix<Element>::testTranformationCalculation(std::source_location location) const
  requires std::equality_comparable<Element>
{
  for (Int index = 0; index < storage_.count(); ++index) {
    const MatrixCoordinate seen = layout_.coordinateForRawIndex(index, location);
    const MatrixCoordinate back = seen.transformed(inverseTransform(), location);
    const bool isRight = containsCoordinate(seen) &&
                         back == originalSize().coordinateForIndex(index, location) &&
                         Optional<Element>((*this)[{seen, location}]) == rawIndex(index);
    if (isRight) continue;
    printLine("self.debugDescription = " + debugDescription());
    fatalFailure(
        "The storage index " + textForm(index) + " is not found again by " + seen.description(),
        location);
  }
}

}  // namespace tolvanite
