// All cells of a size, peeled off in lines: each line is an outer one of the rectangle that is
// left, and begins in one of its corners, both by draws. Made by
// `MatrixSize::coordinateIterator_randomOuterLine`.
//
// The draws, from the system's random source: a coin when the walk is made, and for each line a
// corner of four and a coin. If the first coin is 0, lines that begin in one of the two right
// corners are horizontal always; the left corners have no such rule, deliberately.
#pragma once

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/detail/PulledRange.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

class TOLVANITE_EXPORT RandomOuterLineWalk
    : public detail::PulledRange<RandomOuterLineWalk, MatrixCoordinate> {
 public:
  /// Over that many columns and rows. Draws the first line at once. Without a cell the walk gives
  /// the one corner of that line, which is outside of the size, deliberately: the first line is set
  /// up without looking.
  RandomOuterLineWalk(Int width, Int height);

  /// Sets `coordinate` to the next one; false behind the last. Draws when a line is at its end and
  /// cells are left.
  bool pull(MatrixCoordinate& coordinate);

 private:
  void beginLine();
  bool isBehindLine(MatrixCoordinate coordinate) const;

  Int width_;
  Int height_;
  Int minX_ = 0;
  Int maxX_;
  Int minY_ = 0;
  Int maxY_;
  bool horizontalOnlyOnRight_;
  MatrixCoordinate::Direction direction_ = MatrixCoordinate::Direction::up;
  Optional<MatrixCoordinate> current_;
};

}  // namespace tolvanite
