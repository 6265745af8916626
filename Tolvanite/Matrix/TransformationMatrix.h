// An affine map in pure integers, of what keeps a grid a grid: quarter turns, flips, translations.
//
//   using T = TransformationMatrix;
//   const T turned = T::makeDirection(T::Direction::left, IntSize(3, 2));
//   turned.transformed(IntCoordinate(2, 1));                    // (0, 2)
//   turned.multipliedBy(*turned.inversedTransformationMatrix()) == T::identity;
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
#include <Tolvanite/Matrix/IntCoordinate.h>
#include <Tolvanite/Matrix/IntSize.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Maps (x, y) to (a*x + c*y + tx, b*x + d*y + ty). Overflow in any product or sum is fatal.
struct TOLVANITE_EXPORT TransformationMatrix {
  /// What can be done to a picture without moving it off its place: the quarter turns, and the same
  /// behind a flip. `nune`, spelt so, leaves all as it is.
  class Direction {
   public:
    /// What (x, y) becomes about (0, 0): `left` (-y, x), `leftLeft` (-x, -y), `right` (y, -x),
    /// `flipped` (-x, y), `flippedLeft` (x, -y), `flippedLeftLeft` (y, x), `flippedRight` (-y, -x).
    enum Value : std::uint8_t {
      nune,
      left,
      leftLeft,
      right,
      flipped,
      flippedLeft,
      flippedLeftLeft,
      flippedRight
    };

    /// From the enumerator. Converts back too, so that it can be compared and switched on.
    constexpr Direction(Value value) : value_(value) {}
    constexpr operator Value() const { return value_; }

    /// The eight directions, in the order above.
    TOLVANITE_EXPORT static std::span<const Direction> all();

    /// The name, as "flippedLeft".
    TOLVANITE_EXPORT std::string description() const;
    friend std::ostream& operator<<(std::ostream& out, Direction direction) {
      return out << direction.description();
    }

   private:
    Value value_;
  };

  /// Leaves every coordinate as it is; so does a matrix made without arguments.
  static const TransformationMatrix identity;

  constexpr TransformationMatrix() = default;
  /// Of any six factors; whether the map has an inverse is not asked.
  constexpr TransformationMatrix(Int ownA, Int ownB, Int ownC, Int ownD, Int ownTx, Int ownTy)
      : a(ownA), b(ownB), c(ownC), d(ownD), tx(ownTx), ty(ownTy) {}

  /// Moves by these distances.
  static constexpr TransformationMatrix makeTranslation(Int tx, Int ty) {
    return {1, 0, 0, 1, tx, ty};
  }

  /// Turns about (0, 0), from the x axis towards the y axis. A number of degrees that is no
  /// multiple of 90 is fatal: "rotation only in 90 degree steps possible"; so is one below -360,
  /// unless it is a number of full turns.
  static TransformationMatrix makeRotation(
      Int degrees, std::source_location location = std::source_location::current());

  /// Flips the axes whose factor is -1. Any other factor but 1 is fatal: "scaling is only allowed
  /// by an factor of 1 or -1".
  static TransformationMatrix makeScale(
      Int sx, Int sy, std::source_location location = std::source_location::current());

  /// Turns or flips the cells of a grid of `originalSize` and brings them back to coordinates from
  /// 0 on. `left`, `right`, `flippedLeftLeft` and `flippedRight` exchange the sides of the grid.
  static TransformationMatrix makeDirection(
      Direction direction, IntSize originalSize,
      std::source_location location = std::source_location::current());

  /// The map that applies this one first, and `other` to its result.
  TransformationMatrix multipliedBy(
      const TransformationMatrix& other,
      std::source_location location = std::source_location::current()) const;

  /// The map back; absent if the determinant is 0. By divisions that cut off: exact if the
  /// determinant is 1 or -1, as that of every composition of the maps above is.
  Optional<TransformationMatrix> inversedTransformationMatrix(
      std::source_location location = std::source_location::current()) const;

  /// What `coordinate` is mapped to.
  constexpr IntCoordinate transformed(
      IntCoordinate coordinate,
      std::source_location location = std::source_location::current()) const {
    const auto axis = [&](Int ofX, Int ofY, Int offset) {
      const Int fromX = checkedMultiply(ofX, coordinate.x, location);
      const Int fromY = checkedMultiply(ofY, coordinate.y, location);
      return checkedAdd(checkedAdd(fromX, fromY, location), offset, location);
    };
    return {axis(a, c, tx), axis(b, d, ty)};
  }

  /// "TransformationMatrix(", then three lines: "A,B,0", "C,D,0", "TX,TY,1)".
  std::string description() const;

  friend constexpr bool operator==(const TransformationMatrix&,
                                   const TransformationMatrix&) = default;
  friend std::ostream& operator<<(std::ostream& out, const TransformationMatrix& matrix) {
    return out << matrix.description();
  }

  Int a = 1;   ///< What x adds to the new x.
  Int b = 0;   ///< What x adds to the new y.
  Int c = 0;   ///< What y adds to the new x.
  Int d = 1;   ///< What y adds to the new y.
  Int tx = 0;  ///< The distance added to the new x.
  Int ty = 0;  ///< The distance added to the new y.
};

inline constexpr TransformationMatrix TransformationMatrix::identity{};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::TransformationMatrix> {
  /// The exclusive-or of the fields.
  std::size_t operator()(const tolvanite::TransformationMatrix& m) const noexcept {
    return static_cast<std::size_t>(m.a ^ m.b ^ m.c ^ m.d ^ m.tx ^ m.ty);
  }
};
