// The kinds of walks over a size with what each can be told: the step of a checkered one, the sense
// of a spiral.
//
//   const auto type = CoordinateIteratorType2::from("checkered-5").forced("known");
//   if (type.kind() == CoordinateIteratorType2::Kind::checkered) {
//     for (const auto cell : size.coordinateIterator_checkered(*type.step())) draw(cell);
//   }
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A kind of walk with its payload; compares by both.
class TOLVANITE_EXPORT CoordinateIteratorType2 {
 public:
  /// The walks that MatrixSize makes: `ordered` by `coordinateIterator`, `random` by
  /// `coordinateIterator_randomPrecalculated`, the others by the `coordinateIterator_` of that
  /// name.
  enum class Kind : std::uint8_t { checkered, spiral, ordered, randomOuterLine, random };

  /// In sweeps of every `step`-th cell. Any step is kept; the walk itself wants 1 at least.
  static constexpr CoordinateIteratorType2 checkered(Int step) { return {Kind::checkered, step}; }
  /// Along the border and further in, clockwise if y is seen to grow downward, or the other way
  /// round. Mind that `coordinateIterator_spiral` takes the opposite, `counterClockwise`.
  static constexpr CoordinateIteratorType2 spiral(bool clockwise) {
    return {Kind::spiral, clockwise ? 1 : 0};
  }
  /// A walk of the kind of that name, which needs to be told no more.
  /// @{
  static constexpr CoordinateIteratorType2 ordered() { return {Kind::ordered, 0}; }
  static constexpr CoordinateIteratorType2 randomOuterLine() { return {Kind::randomOuterLine, 0}; }
  static constexpr CoordinateIteratorType2 random() { return {Kind::random, 0}; }
  /// @}

  /// Twelve of them: ordered, checkered with the steps 1 to 7, spiral in both senses, clockwise
  /// first, and the two random ones.
  static std::span<const CoordinateIteratorType2> some();

  /// The type of that text, in capital or small letters: "checkered-" and a decimal integer,
  /// "spiral", which is clockwise, "ordered", "randomouterline" or "random". Absent for any other;
  /// so it is for "spiralCounterClockwise", deliberately.
  static Optional<CoordinateIteratorType2> from(std::string_view text);

  /// Which walk it is, without its payload.
  constexpr Kind kind() const { return kind_; }
  /// The step of a checkered walk; absent for the others.
  constexpr Optional<Int> step() const {
    return kind_ == Kind::checkered ? Optional<Int>(payload_) : Optional<Int>();
  }
  /// The sense of a spiral; absent for the others.
  constexpr Optional<bool> clockwise() const {
    return kind_ == Kind::spiral ? Optional<bool>(payload_ == 1) : Optional<bool>();
  }

  /// "checkered-3", "spiral", "spiralCounterClockwise", "ordered", "randomouterline" or "random".
  std::string description() const;

  friend constexpr bool operator==(const CoordinateIteratorType2&,
                                   const CoordinateIteratorType2&) = default;
  friend std::ostream& operator<<(std::ostream& out, const CoordinateIteratorType2& type) {
    return out << type.description();
  }

 private:
  friend struct std::hash<CoordinateIteratorType2>;
  constexpr CoordinateIteratorType2(Kind kind, Int payload) : kind_(kind), payload_(payload) {}

  Kind kind_;
  Int payload_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::CoordinateIteratorType2> {
  std::size_t operator()(const tolvanite::CoordinateIteratorType2& type) const noexcept {
    return tolvanite::detail::mixedHash(type.kind_, type.payload_);
  }
};
