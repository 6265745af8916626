#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Matrix/Grid.h>
#include <Tolvanite/Matrix/Matrix.h>
#include <Tolvanite/Platform/SystemRandom.h>
#include <Tolvanite/Random/Xoroshiro.h>

#include "walks.h"

using namespace tolvanite;

namespace {

// The lines of a picture, of one width each.
using Frame = std::vector<std::string>;

// Cells of three characters in a box, below a title. The first row stands on top, as on a screen.
template <typename Element>
Frame framed(std::string_view title, const Matrix<Element>& matrix) {
  std::string rule =
      "+" + std::string(3 * static_cast<std::size_t>(matrix.size().width), '-') + "+";
  Frame frame{std::string(title), rule};
  for (const auto& row : matrix.rows()) {
    std::string line = "|";
    for (const auto& cell : row) {
      const std::string text = cell.q2();
      line += std::string(3 - text.size(), ' ') + text;
    }
    frame.push_back(line + "|");
  }
  frame.push_back(rule);
  return frame;
}

// Frames side by side.
void print(std::ostream& out, const std::vector<Frame>& frames) {
  std::size_t height = 0;
  for (const Frame& frame : frames) height = std::max(height, frame.size());
  for (std::size_t line = 0; line < height; ++line) {
    std::string text;
    for (const Frame& frame : frames) {
      const std::string part = line < frame.size() ? frame[line] : "";
      const std::size_t width = std::max(frame[0].size(), frame[1].size()) + 3;
      text += part + std::string(width - part.size(), ' ');
    }
    out << text.substr(0, text.find_last_not_of(' ') + 1) << '\n';
  }
  out << '\n';
}

// The cells numbered in the order in which a walk comes to them.
template <typename Walk>
// NOLINTNEXTLINE(performance-unnecessary-value-param): most walks change as they go
Frame walked(std::string_view title, MatrixSize size, Walk walk) {
  Matrix<int> matrix(size);
  int number = 0;
  for (const MatrixCoordinate cell : walk) matrix[cell] = number++;
  return framed(title, matrix);
}

// The random walks draw from the system, which is made to repeat itself here: so the pictures are
// the same in each run.
class RepeatedDraws : public SystemRandom {
 public:
  ~RepeatedDraws() override { setSystemRandom(before_); }
  std::uint32_t uniform(std::uint32_t bound) override {
    return bound == 0 ? 0 : generator_.random32(bound - 1);
  }

 private:
  Xoroshiro generator_{0x9E3779B97F4A7C15, 0xBF58476D1CE4E5B9};
  SystemRandom* before_ = setSystemRandom(this);
};

void drawOrders(std::ostream& out) {
  const RepeatedDraws draws;
  const MatrixSize size(7, 4);
  print(out, {walked("ordered", size, size.coordinateIterator()),
              walked("checkered, step 3", size, size.coordinateIterator_checkered())});
  print(out, {walked("spiral", size, size.coordinateIterator_spiral()),
              walked("spiral, counter-clockwise", size, size.coordinateIterator_spiral(true))});
  print(out,
        {walked("lines from outside, by draws", size, size.coordinateIterator_randomOuterLine()),
         walked("random", size, size.coordinateIterator_randomPrecalculated())});
}

// One matrix, seen in the eight ways: its cells stay where they are.
void drawDirections(std::ostream& out) {
  Matrix<char> letters(4, 2);
  letters.fillWithPattern(std::string_view("ABCDEFGH"));
  std::vector<Frame> frames;
  for (const auto direction : TransformationMatrix::Direction::all()) {
    letters.setTransform(TransformationMatrix::makeDirection(direction, letters.originalSize()));
    frames.push_back(framed(direction.description(), letters));
    if (frames.size() == 4) {
      print(out, frames);
      frames.clear();
    }
  }
}

void drawShapes(std::ostream& out) {
  Matrix<char> drawing(9, 5);
  drawing.draw(MatrixRect::ofPosition(0, 0, 9, 5), '#');
  drawing.drawLineHorizontal2({2, 2}, std::string_view("hello"));
  print(out, {framed("outline and line", drawing)});
  out << drawing.debugDescription();
}

// The tiles that a mouse drag over a grid of them selects.
void drawSelection(std::ostream& out) {
  const Grid grid(CGSize(30, 30), CGSize(6, 6));
  Matrix<char> tiles(6, 4, '.');
  const CGRect drag(150, 20, -100, 70);
  if (const auto selected = grid.extendOfRect(drag)) tiles.fill(*selected, 'x');
  print(out, {framed("tiles under a drag", tiles)});
}

}  // namespace

namespace gallery {

void drawWalks(std::ostream& out) {
  drawOrders(out);
  drawDirections(out);
  drawShapes(out);
  drawSelection(out);
}

}  // namespace gallery
