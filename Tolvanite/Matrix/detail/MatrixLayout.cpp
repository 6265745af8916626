#include <Tolvanite/Matrix/detail/MatrixLayout.h>

#include <array>

#include <fmt/format.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

namespace {

// `sum + a * b` into `sum`; whether an Int holds all of it.
bool addProduct(Int& sum, Int a, Int b) {
  Int product = 0;
  return !__builtin_mul_overflow(a, b, &product) && !__builtin_add_overflow(sum, product, &sum);
}

// The storage index of a visible cell, which may lie outside of the storage; absent if no Int holds
// it or a step on the way to it.
Optional<Int> linearIndex(const TransformationMatrix& inverse, Int width, Int x, Int y) {
  Int originalX = inverse.tx;
  Int originalY = inverse.ty;
  const bool isHeld = addProduct(originalX, inverse.a, x) && addProduct(originalX, inverse.c, y) &&
                      addProduct(originalY, inverse.b, x) && addProduct(originalY, inverse.d, y);
  Int index = originalX;
  return isHeld && addProduct(index, originalY, width) ? Optional<Int>(index) : Optional<Int>();
}

}  // namespace

MatrixLayout::MatrixLayout(MatrixSize originalSize, std::source_location location)
    : size_(originalSize), originalSize_(originalSize) {
  static_cast<void>(originalSize.count(location));
  deriveSteps();
}

void MatrixLayout::setTransform(const TransformationMatrix& transform,
                                std::source_location location) {
  const auto inverse = transform.inversedTransformationMatrix(location);
  if (inverse.isNone()) {
    fatalFailure("The transform has no inverse: " + transform.description(), location);
  }
  size_ = originalSize_.transformed(transform, location);
  transform_ = transform;
  inverseTransform_ = *inverse;
  deriveSteps();
}

void MatrixLayout::deriveSteps() {
  first_ = columnStep_ = rowStep_ = limit_ = 0;
  if (size_.width < 1 || size_.height < 1) return;
  const Int right = size_.width - 1;
  const Int top = size_.height - 1;
  const auto indexOf = [&](Int x, Int y) {
    return linearIndex(inverseTransform_, originalSize_.width, x, y);
  };
  const std::array corners{indexOf(0, 0), indexOf(right, 0), indexOf(0, top), indexOf(right, top)};
  for (const auto& corner : corners) {
    if (corner.isNone()) return;
  }
  first_ = *corners[0];
  if (right > 0) columnStep_ = *indexOf(1, 0) - first_;
  if (top > 0) rowStep_ = *indexOf(0, 1) - first_;
  limit_ = originalSize_.count();
}

void MatrixLayout::fail(MatrixCoordinate coordinate, std::source_location location) const {
  if (!size_.contains(coordinate)) failBounds(coordinate, location);
  const Int count = originalSize_.count(location);
  const auto index =
      linearIndex(inverseTransform_, originalSize_.width, coordinate.x, coordinate.y);
  if (limit_ == 0 || index.isNone()) fatalOverflow(location);
  fatalIndexOutOfRange(*index, count, location);
}

LineOfIndexes MatrixLayout::row(Int y, std::source_location location) const {
  if (y < 0 || y >= size_.height) failBounds({0, y}, location);
  if (size_.width < 1) return {};
  const Int first = storageIndex({0, y}, location);
  if (size_.width == 1) return {first, 0, 1};
  // As the last cell lies within the storage, so do those between.
  const Int last = storageIndex({size_.width - 1, y}, location);
  return {first, (last - first) / (size_.width - 1), size_.width};
}

LineOfIndexes MatrixLayout::column(Int x, std::source_location location) const {
  if (x < 0 || x >= size_.width) failBounds({x, 0}, location);
  if (size_.height < 1) return {};
  const Int first = storageIndex({x, 0}, location);
  if (size_.height == 1) return {first, 0, 1};
  const Int last = storageIndex({x, size_.height - 1}, location);
  return {first, (last - first) / (size_.height - 1), size_.height};
}

MatrixCoordinate MatrixLayout::coordinateForRawIndex(Int index,
                                                     std::source_location location) const {
  return originalSize_.coordinateForIndex(index, location).transformed(transform_, location);
}

void MatrixLayout::failBounds(MatrixCoordinate coordinate, std::source_location location) const {
  fatalFailure(fmt::format("Coordinate out of bounds: {} ({})", coordinate.description(),
                           size_.description()),
               location);
}

}  // namespace tolvanite::detail
