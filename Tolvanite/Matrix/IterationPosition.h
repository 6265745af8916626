// How far a loop has come, as a text of constant width.
//
//   IterationPosition(6, 120).description();   // "  7/120"
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <source_location>
#include <string>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A zero-based position among a total. Compares by both.
class TOLVANITE_EXPORT IterationPosition {
 public:
  /// The first position of `total`. A negative total is fatal.
  explicit IterationPosition(Int total,
                             std::source_location location = std::source_location::current())
      : IterationPosition(0, total, location) {}
  /// Position `ownI` of `total`.
  IterationPosition(Int ownI, Int total,
                    std::source_location location = std::source_location::current());

  /// The position once more.
  Int offset() const { return i; }

  /// How many positions there are; the position may lie behind them.
  Int total() const { return total_; }
  /// A negative total is fatal.
  void setTotal(Int total, std::source_location location = std::source_location::current());

  /// The position counted from 1, padded to the places of the total, "/" and the total.
  std::string description() const;

  friend bool operator==(const IterationPosition& a, const IterationPosition& b) {
    return a.i == b.i && a.total_ == b.total_;
  }
  friend std::ostream& operator<<(std::ostream& out, const IterationPosition& position) {
    return out << position.description();
  }

  /// The position, counted from 0.
  Int i;

 private:
  Int total_ = 0;
  Int places_ = 1;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::IterationPosition> {
  /// The exclusive-or of position and total.
  std::size_t operator()(const tolvanite::IterationPosition& position) const noexcept {
    return static_cast<std::size_t>(position.i ^ position.total());
  }
};
