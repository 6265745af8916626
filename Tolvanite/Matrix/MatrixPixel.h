// A cell and what it is to hold: a piece of a drawing that was not yet made.
//
//   for (const auto& pixel : matrix.matrixPixels_drawLineHorizontal({0, 0}, 3, 'x')) {
//     matrix[pixel.coordinate] = pixel.content;
//   }
#pragma once

#include <ostream>
#include <string>

#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>

namespace tolvanite {

/// What is to be drawn into one cell.
template <typename Element>
struct MatrixPixel {
  MatrixCoordinate coordinate;  ///< The cell; that the matrix has it is not checked.
  Element content;              ///< What the cell is to hold.

  /// "MatrixPixel(COORDINATE, CONTENT)".
  std::string description() const
    requires HasTextForm<Element>
  {
    return "MatrixPixel(" + coordinate.description() + ", " + textForm(content) + ")";
  }

  friend constexpr bool operator==(const MatrixPixel& a, const MatrixPixel& b)
    requires requires { a.content == b.content; }
  {
    return a.coordinate == b.coordinate && a.content == b.content;
  }
  friend std::ostream& operator<<(std::ostream& out, const MatrixPixel& pixel)
    requires HasTextForm<Element>
  {
    return out << pixel.description();
  }
};

}  // namespace tolvanite
