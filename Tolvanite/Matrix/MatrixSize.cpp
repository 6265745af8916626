#include <Tolvanite/Matrix/MatrixSize.h>

#include <algorithm>
#include <array>
#include <cmath>

#include <fmt/format.h>

#include <Tolvanite/Random/RandomInt.h>

namespace tolvanite {

namespace {

// The least of the quotients not below `a / b`, for the sizes that are cut.
Int quotientRoundedUp(Int a, Int b, std::source_location location) {
  const Int quotient = detail::checkedDivide(a, b, location);
  const bool isCutDown = a % b != 0 && (a < 0) == (b < 0);
  return isCutDown ? quotient + 1 : quotient;
}

// 0 to `room`, drawn; 0 without room.
Int placeWithin(Int room, std::source_location location) {
  return room > 0 ? RandomInt::randomNumber(0, room, location) : 0;
}

// What has room for 0 to 6 elements, whatever the ratio.
constexpr std::array<MatrixSize, 7> smallSizes{
    {{0, 0}, {1, 1}, {2, 1}, {2, 2}, {2, 2}, {3, 2}, {3, 2}}};

[[noreturn]] void failRatio(Int elementCount, float ratio, std::source_location location) {
  fatalFailure(fmt::format("No matrix size of the ratio {} for {} elements", ratio, elementCount),
               location);
}

}  // namespace

Int squareMatrixSideLength(Int count, std::source_location location) {
  if (count < 1) {
    fatalFailure(fmt::format("No square matrix has room for {} elements", count), location);
  }
  // The root of a double can be off by one beyond 2^52. Divided, not multiplied: a square of the
  // highest sides is no Int.
  const auto hasRoom = [&](Int side) { return side >= (count - 1) / side + 1; };
  auto side = static_cast<Int>(std::sqrt(static_cast<double>(count)));
  while (side > 1 && hasRoom(side - 1)) --side;
  while (!hasRoom(side)) ++side;
  return side;
}

Int MatrixSize::countStrokedRect(std::source_location location) const {
  if (height < 1) {
    fatalFailure(fmt::format("A stroked rect needs a height of at least 1, not {}", height),
                 location);
  }
  if (height == 1) return width;
  const Int both = checkedSubtract(checkedAdd(width, height, location), Int{2}, location);
  return checkedMultiply(both, Int{2}, location);
}

MatrixCoordinate MatrixSize::coordinateForStrokedRectIndex(Int index,
                                                           std::source_location location) const {
  const auto sum = [&](Int a, Int b) { return checkedAdd(a, b, location); };
  const auto minus = [&](Int a, Int b) { return checkedSubtract(a, b, location); };
  if (index < width) return {index, 0};
  const Int rightEnd = minus(sum(width, height), 2);
  if (index < rightEnd) return {minus(width, 1), minus(index, minus(width, 1))};
  const Int bottomEnd = sum(rightEnd, width);
  if (index < bottomEnd) return {minus(minus(width, 1), minus(index, rightEnd)), minus(height, 1)};
  const Int leftEnd = sum(bottomEnd, minus(height, 2));
  // Inclusive: the index behind the last leads back to the start, deliberately.
  if (index <= leftEnd) return {0, minus(minus(height, 1), minus(index, minus(bottomEnd, 1)))};
  fatalFailure(fmt::format("Index {} in coordinateForStrokedRectIndex out of bounds.", index),
               location);
}

MatrixSize MatrixSize::matrixSizeByReducingHeightToFit(Int elementCount,
                                                       std::source_location location) const {
  return ofWidth(width, elementCount, location);
}

MatrixSize MatrixSize::matrixSizeByReducingWidthToFit(Int elementCount,
                                                      std::source_location location) const {
  return {detail::dividedRoundedUp(elementCount, height, location), height};
}

MatrixSize MatrixSize::matrixSizeToFitInto(MatrixSize maximumSize,
                                           std::source_location location) const {
  const bool isTooWide = width > maximumSize.width;
  const bool isTooHigh = height > maximumSize.height;
  if (isTooWide && isTooHigh) return maximumSize;
  if (isTooHigh) {
    const Int needed = quotientRoundedUp(count(location), maximumSize.height, location);
    return {std::min(maximumSize.width, needed), maximumSize.height};
  }
  if (isTooWide) {
    const Int needed = quotientRoundedUp(count(location), maximumSize.width, location);
    return {maximumSize.width, std::min(maximumSize.height, needed)};
  }
  return *this;
}

// In floats of 32 bits throughout, deliberately: with others some sizes come out differently.
MatrixSize MatrixSize::from(Int elementCount, float ratio, std::source_location location) {
  if (elementCount < 0) {
    fatalFailure(fmt::format("No matrix size for {} elements", elementCount), location);
  }
  if (elementCount < static_cast<Int>(smallSizes.size())) {
    return smallSizes.at(static_cast<std::size_t>(elementCount));
  }
  const auto wanted = static_cast<float>(elementCount);
  float height = std::floor(std::sqrt(wanted / ratio));
  float width = std::floor(height * ratio);
  while (width * height < wanted) {
    float& side = ratio > width / height ? width : height;
    // From 2^24 on a float may be too coarse to grow by 1.
    if (side + 1 == side) failRatio(elementCount, ratio, location);
    side += 1;
  }
  if (std::isnan(width) || std::isnan(height)) failRatio(elementCount, ratio, location);
  return {detail::intFrom(width, location), detail::intFrom(height, location)};
}

MatrixSize MatrixSize::matrixSizeForSquareMatrix(Int elementCount, std::source_location location) {
  const Int width = squareMatrixSideLength(elementCount, location);
  return {width, (elementCount - 1) / width + 1};
}

MatrixCoordinate MatrixSize::randomCoordinate(std::source_location location) const {
  const Int x = RandomInt::random(checkedSubtract(width, Int{1}, location), location);
  const Int y = RandomInt::random(checkedSubtract(height, Int{1}, location), location);
  return {x, y};
}

MatrixRect MatrixSize::randomRect(const Optional<MatrixSize>& minSize,
                                  const Optional<MatrixSize>& maxSize,
                                  std::source_location location) const {
  const MatrixSize least = minSize.value_or(MatrixSize(1, 1));
  const MatrixSize most = maxSize.value_or(*this);
  const Int rectWidth = RandomInt::randomNumber(least.width, most.width, location);
  const Int rectHeight = RandomInt::randomNumber(least.height, most.height, location);
  const MatrixSize room = sizeInsetBy(rectWidth, rectHeight, location);
  const Int x = RandomInt::randomNumber(0, room.width, location);
  const Int y = RandomInt::randomNumber(0, room.height, location);
  return MatrixRect::ofPosition(x, y, rectWidth, rectHeight, location);
}

Optional<MatrixCoordinate> MatrixSize::coordinateOfRandomlyPlaced(
    MatrixSize objectWithSize, std::source_location location) const {
  const MatrixSize room = sizeInsetBy(objectWithSize.width, objectWithSize.height, location);
  if (room.width <= 0 || room.height <= 0) return {};
  return coordinateOfRandomlyPlacedOr00(objectWithSize, location);
}

MatrixCoordinate MatrixSize::coordinateOfRandomlyPlacedOr00(MatrixSize objectWithSize,
                                                            std::source_location location) const {
  const MatrixSize room = sizeInsetBy(objectWithSize.width, objectWithSize.height, location);
  const Int x = placeWithin(room.width, location);
  const Int y = placeWithin(room.height, location);
  return {x, y};
}

MatrixRect MatrixSize::rectRandomlyPosition(MatrixSize objectSize,
                                            std::source_location location) const {
  return {coordinateOfRandomlyPlacedOr00(objectSize, location), objectSize, location};
}

std::string MatrixSize::description() const {
  return fmt::format("MatrixSize({}, {})", width, height);
}

}  // namespace tolvanite
