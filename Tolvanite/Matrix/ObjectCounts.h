// How many objects fit into a length of whole units, and how long so many of them are.
//
//   width2(3, 10, 2);    // 34: three objects of 10 with gaps of 2 between them
//   divide2(34, 10, 2);  // 3
//   bucketCount(7, 3);   // 3
#pragma once

#include <source_location>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>

namespace tolvanite {

/// The length of `count` objects with a gap between each two. Overflow is fatal here and below.
constexpr Int width2(Int count, Int objectWidth, Int paddingWidth,
                     std::source_location location = std::source_location::current()) {
  const Int stride = checkedAdd(objectWidth, paddingWidth, location);
  return checkedSubtract(checkedMultiply(count, stride, location), paddingWidth, location);
}

/// The number of objects that fit into `width` with a gap between each two. An object and a gap of
/// length 0 together are fatal.
constexpr Int divide2(Int width, Int objectWidth, Int paddingWidth,
                      std::source_location location = std::source_location::current()) {
  const Int stride = checkedAdd(objectWidth, paddingWidth, location);
  const Int whole = detail::checkedDivide(width, stride, location);
  // A last object needs no gap behind it.
  const Int withLast = checkedAdd(checkedMultiply(stride, whole, location), objectWidth, location);
  return withLast > width ? whole : checkedAdd(whole, Int{1}, location);
}

/// The number of buckets that `count` objects need. A `bucketSize` of 0 is fatal, unless `count` is
/// 0.
constexpr Int bucketCount(Int count, Int bucketSize,
                          std::source_location location = std::source_location::current()) {
  if (count == 0) return 0;
  const Int before = checkedSubtract(count, Int{1}, location);
  return checkedAdd(detail::checkedDivide(before, bucketSize, location), Int{1}, location);
}

}  // namespace tolvanite
