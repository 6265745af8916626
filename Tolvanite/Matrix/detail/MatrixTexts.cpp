#include <Tolvanite/Matrix/detail/MatrixTexts.h>

#include <iterator>

#include <fmt/format.h>

#include <Tolvanite/Diagnostics/PrintLine.h>

namespace tolvanite::detail {

std::string matrixDescription(MatrixSize size) {
  return fmt::format("Matrix({},{})", size.width, size.height);
}

std::string matrixPicture(MatrixSize size, const std::function<bool(MatrixCoordinate)>& isFilled) {
  std::string picture = matrixDescription(size) + ": (\n   ";
  for (Int x = 0; x < size.width; ++x) picture += static_cast<char>('0' + x % 10);
  picture += '\n';
  for (Int y = 0; y < size.height; ++y) {
    fmt::format_to(std::back_inserter(picture), "{:>2}:", y);
    for (Int x = 0; x < size.width; ++x) picture += isFilled({x, y}) ? 'X' : '_';
    picture += '\n';
  }
  return picture + ")\n";
}

void printFilling(MatrixSize size, double percent) {
  printLine(fmt::format("filling matrix({}) with {} ", size.description(), percent));
}

void printFilled(MatrixSize size, Int fillCount) {
  const double part = static_cast<double>(fillCount) / static_cast<double>(size.count());
  printLine(fmt::format("fillcount = {} == {}", fillCount, part));
}

}  // namespace tolvanite::detail
