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

// The storage index of a visible cell; absent if it lies outside of the storage or no Int holds a
// step on the way to it.
Optional<Int> indexWithin(const TransformationMatrix& inverse, MatrixSize originalSize,
                          MatrixCoordinate coordinate) {
  Int x = inverse.tx;
  Int y = inverse.ty;
  if (!addProduct(x, inverse.a, coordinate.x) || !addProduct(x, inverse.c, coordinate.y)) return {};
  if (!addProduct(y, inverse.b, coordinate.x) || !addProduct(y, inverse.d, coordinate.y)) return {};
  Int index = x;
  if (!addProduct(index, y, originalSize.width)) return {};
  if (index < 0 || index >= originalSize.count()) return {};
  return index;
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
  safeWidth_ = 0;
  safeHeight_ = 0;
  if (size_.width < 1 || size_.height < 1) return;
  const Int right = size_.width - 1;
  const Int top = size_.height - 1;
  const auto indexOf = [&](Int x, Int y) {
    return indexWithin(inverseTransform_, originalSize_, {x, y});
  };
  const std::array corners{indexOf(0, 0), indexOf(right, 0), indexOf(0, top), indexOf(right, top)};
  for (const auto& corner : corners) {
    if (corner.isNone()) return;
  }
  first_ = *corners[0];
  columnStep_ = right == 0 ? 0 : (*corners[1] - first_) / right;
  rowStep_ = top == 0 ? 0 : (*corners[2] - first_) / top;
  safeWidth_ = static_cast<std::uint64_t>(size_.width);
  safeHeight_ = static_cast<std::uint64_t>(size_.height);
}

Int MatrixLayout::checkedStorageIndex(MatrixCoordinate coordinate,
                                      std::source_location location) const {
  if (!size_.contains(coordinate)) failBounds(coordinate, location);
  const MatrixCoordinate original = coordinate.transformed(inverseTransform_, location);
  const Int index = originalSize_.indexForCoordinate(original, location);
  const Int count = originalSize_.count(location);
  if (index < 0 || index >= count) fatalIndexOutOfRange(index, count, location);
  return index;
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
