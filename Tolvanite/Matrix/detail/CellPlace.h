// What stands between the brackets of a subscript: a coordinate, and where the subscript is
// written.
#pragma once

#include <source_location>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>

namespace tolvanite::detail {

/// Made from a coordinate, or from x and y between braces. As a subscript takes one argument, this
/// is how the caller's position gets into the message of a fatal failure.
struct CellPlace {
  constexpr CellPlace(MatrixCoordinate ownCoordinate,
                      std::source_location ownLocation = std::source_location::current())
      : coordinate(ownCoordinate), location(ownLocation) {}
  constexpr CellPlace(Int x, Int y,
                      std::source_location ownLocation = std::source_location::current())
      : coordinate(x, y), location(ownLocation) {}

  MatrixCoordinate coordinate;
  std::source_location location;
};

}  // namespace tolvanite::detail
