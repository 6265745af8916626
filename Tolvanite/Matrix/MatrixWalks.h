// Walks over the storage of a matrix, as it was when the walk was made: what is written to the
// matrix meanwhile is not seen. Made by `Matrix::makeIterator` and `makeSetCoordinateIterator`.
#pragma once

#include <source_location>
#include <utility>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/detail/CellStorage.h>
#include <Tolvanite/Matrix/detail/MatrixLayout.h>
#include <Tolvanite/Matrix/detail/PulledRange.h>

namespace tolvanite {

/// All cells in the order of the storage.
template <typename Element>
class RawCellWalk : public detail::PulledRange<RawCellWalk<Element>, Optional<Element>> {
 public:
  /// @cond
  explicit RawCellWalk(detail::CellStorage<Element> storage) : storage_(std::move(storage)) {}
  /// @endcond

  /// Sets `cell` to the next one, which may be absent; false behind the last.
  bool pull(Optional<Element>& cell) {
    if (index_ == storage_.count()) return false;
    cell = storage_.read(index_++);
    return true;
  }

 private:
  detail::CellStorage<Element> storage_;
  Int index_ = 0;
};

/// The visible coordinates of the cells that hold a value, in the order of the storage.
template <typename Element>
class SetCoordinateWalk : public detail::PulledRange<SetCoordinateWalk<Element>, MatrixCoordinate> {
 public:
  /// @cond
  SetCoordinateWalk(detail::CellStorage<Element> storage, const detail::MatrixLayout& layout,
                    std::source_location location)
      : storage_(std::move(storage)), layout_(layout), location_(location) {}
  /// @endcond

  /// Sets `coordinate` to the next one; false behind the last.
  bool pull(MatrixCoordinate& coordinate) {
    while (index_ < storage_.count() && !storage_.isFilled(index_)) ++index_;
    if (index_ == storage_.count()) return false;
    coordinate = layout_.coordinateForRawIndex(index_++, location_);
    return true;
  }

 private:
  detail::CellStorage<Element> storage_;
  detail::MatrixLayout layout_;
  std::source_location location_;
  Int index_ = 0;
};

}  // namespace tolvanite
