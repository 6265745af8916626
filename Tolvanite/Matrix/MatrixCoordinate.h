// The place of a cell in a matrix, and the steps from it to others. y grows upward.
//
//   const MatrixCoordinate start(2, 0);
//   start.up();                                                // (2, 1)
//   start.right(1, MatrixSize(3, 3)).isNone();                 // true: behind the last column
//   start.coordinateMovedByTo({.x = 0, .dy = 1});              // (0, 1)
//   for (const auto direction : MatrixCoordinate::Direction::all()) visit(start, direction);
//
// Operations that take a MatrixSize need <Tolvanite/Matrix/MatrixSize.h>.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <source_location>
#include <span>
#include <string>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/TransformationMatrix.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

struct MatrixSize;

/// A column and a row. Overflow in its arithmetic is fatal.
struct TOLVANITE_EXPORT MatrixCoordinate {
  /// The ways to a neighbouring cell.
  class Direction {
   public:
    /// Up is the next row, right the next column.
    enum Value : std::uint8_t { up, left, down, right };

    /// From the enumerator. Converts back too, so that it can be compared and switched on.
    constexpr Direction(Value value) : value_(value) {}
    constexpr operator Value() const { return value_; }

    /// The four directions, in the order above.
    TOLVANITE_EXPORT static std::span<const Direction> all();

    /// The name, as "up".
    TOLVANITE_EXPORT std::string description() const;
    friend std::ostream& operator<<(std::ostream& out, Direction direction) {
      return out << direction.description();
    }

   private:
    Value value_;
  };

  /// Moves, as arguments of `coordinateMovedByTo` and `moveByTo`: dx and dy are distances, x and y
  /// are places.
  /// @{
  struct ByDxDy {
    /// How many columns rightward and rows upward.
    /// @{
    Int dx, dy;
    /// @}
  };
  struct ToXByDy {
    /// The column to move to, and how many rows upward.
    /// @{
    Int x, dy;
    /// @}
  };
  struct ByDxToY {
    /// How many columns rightward, and the row to move to.
    /// @{
    Int dx, y;
    /// @}
  };
  /// @}

  /// (0, 0).
  static const MatrixCoordinate zero;

  constexpr MatrixCoordinate() = default;
  /// Of any column and row; whether they are those of a cell shows where a size is at hand.
  constexpr MatrixCoordinate(Int ownX, Int ownY) : x(ownX), y(ownY) {}

  /// The number of the cell, counted row by row from 0: `y * width + x`.
  Int position(const MatrixSize& matrixSize,
               std::source_location location = std::source_location::current()) const;

  /// The coordinate moved so: `coordinateMovedByTo({.dx = 1, .dy = -1})`, `({.x = 0, .dy = 1})`,
  /// `({.dx = 1, .y = 0})`.
  /// @{
  constexpr MatrixCoordinate coordinateMovedByTo(
      ByDxDy move, std::source_location location = std::source_location::current()) const {
    return {checkedAdd(x, move.dx, location), checkedAdd(y, move.dy, location)};
  }
  constexpr MatrixCoordinate coordinateMovedByTo(
      ToXByDy move, std::source_location location = std::source_location::current()) const {
    return {move.x, checkedAdd(y, move.dy, location)};
  }
  constexpr MatrixCoordinate coordinateMovedByTo(
      ByDxToY move, std::source_location location = std::source_location::current()) const {
    return {checkedAdd(x, move.dx, location), move.y};
  }
  /// @}

  /// Moves this coordinate as `coordinateMovedByTo` tells.
  /// @{
  constexpr void moveByTo(ByDxDy move,
                          std::source_location location = std::source_location::current()) {
    *this = coordinateMovedByTo(move, location);
  }
  constexpr void moveByTo(ToXByDy move,
                          std::source_location location = std::source_location::current()) {
    *this = coordinateMovedByTo(move, location);
  }
  constexpr void moveByTo(ByDxToY move,
                          std::source_location location = std::source_location::current()) {
    *this = coordinateMovedByTo(move, location);
  }
  /// @}

  /// The coordinate moved by these distances; absent if a field would be negative, if it would lie
  /// outside of `matrixSize`, or if its position there would not be below `totalCount`, which is
  /// ignored without a `matrixSize`.
  /// @{
  Optional<MatrixCoordinate> coordinateMovedBy(
      Int dx, Int dy, std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> coordinateMovedBy(
      Int dx, Int dy, const Optional<MatrixSize>& matrixSize, const Optional<Int>& totalCount = {},
      std::source_location location = std::source_location::current()) const;
  /// @}

  /// The coordinate `delta` cells further in a direction; absent if a field would be negative or it
  /// would lie outside of `matrixSize`.
  /// @{
  Optional<MatrixCoordinate> coordinateTo(
      Direction direction, Int delta = 1,
      std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> coordinateTo(
      Direction direction, Int delta, const Optional<MatrixSize>& matrixSize,
      std::source_location location = std::source_location::current()) const;

  Optional<MatrixCoordinate> up(
      Int delta = 1, std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> up(
      Int delta, const Optional<MatrixSize>& matrixSize,
      std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> left(
      Int delta = 1, std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> left(
      Int delta, const Optional<MatrixSize>& matrixSize,
      std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> down(
      Int delta = 1, std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> down(
      Int delta, const Optional<MatrixSize>& matrixSize,
      std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> right(
      Int delta = 1, std::source_location location = std::source_location::current()) const;
  Optional<MatrixCoordinate> right(
      Int delta, const Optional<MatrixSize>& matrixSize,
      std::source_location location = std::source_location::current()) const;
  /// @}

  /// What `matrix` maps this coordinate to.
  constexpr MatrixCoordinate transformed(
      const TransformationMatrix& matrix,
      std::source_location location = std::source_location::current()) const {
    const IntCoordinate mapped = matrix.transformed({x, y}, location);
    return {mapped.x, mapped.y};
  }

  /// "MatrixCoordinate(X, Y)".
  std::string description() const;

  /// The sum, field by field.
  friend constexpr MatrixCoordinate operator+(const MatrixCoordinate& a,
                                              const MatrixCoordinate& b) {
    return {checkedAdd(a.x, b.x), checkedAdd(a.y, b.y)};
  }
  friend constexpr bool operator==(const MatrixCoordinate&, const MatrixCoordinate&) = default;
  friend std::ostream& operator<<(std::ostream& out, const MatrixCoordinate& coordinate) {
    return out << coordinate.description();
  }

  Int x = 0;  ///< The column, counted from 0.
  Int y = 0;  ///< The row, counted from 0.
};

inline constexpr MatrixCoordinate MatrixCoordinate::zero{};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::MatrixCoordinate> {
  std::size_t operator()(const tolvanite::MatrixCoordinate& coordinate) const noexcept {
    return tolvanite::detail::mixedHash(coordinate.x, coordinate.y);
  }
};
