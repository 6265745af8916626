// The names of the walks over a size, for settings and menus: a caller selects the walk by the
// case.
//
//   for (const auto type : CoordinateIteratorType1::all()) menu.add(type.description());
//   switch (CoordinateIteratorType1::from("Spiral").forced("known")) {
//     case CoordinateIteratorType1::spiral:
//       for (const auto cell : size.coordinateIterator_spiral()) draw(cell);
//       break;
//     ...
//   }
#pragma once

#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A kind of walk.
class CoordinateIteratorType1 {
 public:
  /// The walks that MatrixSize makes: `ordered` by `coordinateIterator`, `random` by
  /// `coordinateIterator_randomPrecalculated`, the others by the `coordinateIterator_` of that
  /// name.
  enum Value : std::uint8_t { ordered, checkered, spiral, randomOuterLine, random };

  /// From the enumerator. Converts back too, so that it can be compared and switched on.
  constexpr CoordinateIteratorType1(Value value) : value_(value) {}
  constexpr operator Value() const { return value_; }

  /// The five kinds, in the order above.
  TOLVANITE_EXPORT static std::span<const CoordinateIteratorType1> all();

  /// The kind of that name, in capital or small letters; absent for any other text.
  TOLVANITE_EXPORT static Optional<CoordinateIteratorType1> from(std::string_view text);

  /// The name, as "randomOuterLine".
  TOLVANITE_EXPORT std::string description() const;
  friend std::ostream& operator<<(std::ostream& out, CoordinateIteratorType1 type) {
    return out << type.description();
  }

 private:
  Value value_;
};

}  // namespace tolvanite
