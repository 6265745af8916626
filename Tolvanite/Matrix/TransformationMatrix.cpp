#include <Tolvanite/Matrix/TransformationMatrix.h>

#include <array>
#include <string_view>

#include <fmt/format.h>

#include <Tolvanite/Matrix/detail/Arithmetic.h>

namespace tolvanite {

namespace {

using Direction = TransformationMatrix::Direction;

// One direction: its name, and the linear part of its map.
struct DirectionRow {
  Direction direction;
  std::string_view name;
  Int a, b, c, d;
};

constexpr std::array<DirectionRow, 8> rows{{
    {Direction::nune, "nune", 1, 0, 0, 1},
    {Direction::left, "left", 0, 1, -1, 0},
    {Direction::leftLeft, "leftLeft", -1, 0, 0, -1},
    {Direction::right, "right", 0, -1, 1, 0},
    {Direction::flipped, "flipped", -1, 0, 0, 1},
    {Direction::flippedLeft, "flippedLeft", 1, 0, 0, -1},
    {Direction::flippedLeftLeft, "flippedLeftLeft", 0, 1, 1, 0},
    {Direction::flippedRight, "flippedRight", 0, -1, -1, 0},
}};

// The remainder keeps the sign: angles below -360 stay negative unless they are full turns, and are
// refused deliberately.
Int normalised(Int degrees, std::source_location location) {
  return checkedAdd(degrees, Int{360}, location) % 360;
}

Int intSin(Int degrees, std::source_location location) {
  switch (const Int angle = normalised(degrees, location)) {
    case 0:
    case 180:
      return 0;
    case 90:
      return 1;
    case 270:
      return -1;
    default:
      fatalFailure(fmt::format("sin({}) not possible", angle), location);
  }
}

Int intCos(Int degrees, std::source_location location) {
  switch (const Int angle = normalised(degrees, location)) {
    case 0:
      return 1;
    case 90:
    case 270:
      return 0;
    case 180:
      return -1;
    default:
      fatalFailure(fmt::format("cos({}) not possible", angle), location);
  }
}

// p*q + r*s.
Int sumOfProducts(Int p, Int q, Int r, Int s, std::source_location location) {
  return checkedAdd(checkedMultiply(p, q, location), checkedMultiply(r, s, location), location);
}

Int negative(Int value, std::source_location location) {
  return checkedSubtract(Int{0}, value, location);
}

}  // namespace

std::span<const Direction> Direction::all() {
  static constexpr std::array<Direction, 8> directions{
      nune, left, leftLeft, right, flipped, flippedLeft, flippedLeftLeft, flippedRight};
  return directions;
}

std::string Direction::description() const { return std::string(rows.at(value_).name); }

TransformationMatrix TransformationMatrix::makeRotation(Int degrees,
                                                        std::source_location location) {
  if (degrees % 90 != 0) fatalFailure("rotation only in 90 degree steps possible", location);
  const Int sin = intSin(degrees, location);
  const Int cos = intCos(degrees, location);
  return {cos, sin, -sin, cos, 0, 0};
}

TransformationMatrix TransformationMatrix::makeScale(Int sx, Int sy,
                                                     std::source_location location) {
  const auto isAllowed = [](Int factor) { return factor == 1 || factor == -1; };
  if (!isAllowed(sx) || !isAllowed(sy)) {
    fatalFailure("scaling is only allowed by an factor of 1 or -1", location);
  }
  return {sx, 0, 0, sy, 0, 0};
}

TransformationMatrix TransformationMatrix::makeDirection(Direction direction, IntSize originalSize,
                                                         std::source_location location) {
  const DirectionRow& row = rows.at(direction);
  // An axis that falls is brought back by the last index of the side that it comes from.
  const auto offset = [&](Int ofX, Int ofY) {
    if (ofX < 0) return checkedSubtract(originalSize.width, Int{1}, location);
    return ofY < 0 ? checkedSubtract(originalSize.height, Int{1}, location) : Int{0};
  };
  const TransformationMatrix linear(row.a, row.b, row.c, row.d, 0, 0);
  return linear.multipliedBy(makeTranslation(offset(row.a, row.c), offset(row.b, row.d)), location);
}

TransformationMatrix TransformationMatrix::multipliedBy(const TransformationMatrix& other,
                                                        std::source_location location) const {
  const auto& o = other;
  return {sumOfProducts(a, o.a, b, o.c, location),
          sumOfProducts(a, o.b, b, o.d, location),
          sumOfProducts(c, o.a, d, o.c, location),
          sumOfProducts(c, o.b, d, o.d, location),
          checkedAdd(sumOfProducts(tx, o.a, ty, o.c, location), o.tx, location),
          checkedAdd(sumOfProducts(tx, o.b, ty, o.d, location), o.ty, location)};
}

Optional<TransformationMatrix> TransformationMatrix::inversedTransformationMatrix(
    std::source_location location) const {
  const auto difference = [&](Int p, Int q, Int r, Int s) {
    return checkedSubtract(checkedMultiply(p, q, location), checkedMultiply(r, s, location),
                           location);
  };
  const Int determinant = difference(a, d, b, c);
  if (determinant == 0) return {};
  const auto divided = [&](Int value) {
    return detail::checkedDivide(value, determinant, location);
  };
  return TransformationMatrix(divided(d), divided(negative(b, location)),
                              divided(negative(c, location)), divided(a),
                              divided(difference(c, ty, d, tx)), divided(difference(b, tx, a, ty)));
}

std::string TransformationMatrix::description() const {
  return fmt::format("TransformationMatrix(\n{},{},0\n{},{},0\n{},{},1)", a, b, c, d, tx, ty);
}

}  // namespace tolvanite
