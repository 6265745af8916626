// What a location on an axis of tiles is on: a tile, or the gap behind it.
//
//   Grid::hitTest(11, 10, 2) == GridHitArea::spacing(0);
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>

namespace tolvanite {

/// The kind of area with the index of the tile that the location is on or behind; compares by both.
class GridHitArea {
 public:
  /// On a tile, or in the gap behind one.
  enum class Kind : std::uint8_t { tile, spacing };

  /// On the tile of that index.
  static constexpr GridHitArea tile(Int index) { return {Kind::tile, index}; }
  /// In the gap behind the tile of that index.
  static constexpr GridHitArea spacing(Int index) { return {Kind::spacing, index}; }

  /// Tile or gap.
  constexpr Kind kind() const { return kind_; }
  /// Whether it is a tile and not a gap.
  constexpr bool isTile() const { return kind_ == Kind::tile; }
  /// The index of the tile, or of that before the gap; negative before the first tile.
  constexpr Int index() const { return index_; }

  /// "tile(INDEX)" or "spacing(INDEX)".
  std::string description() const {
    return (isTile() ? "tile(" : "spacing(") + textForm(index_) + ")";
  }

  friend constexpr bool operator==(const GridHitArea&, const GridHitArea&) = default;
  friend std::ostream& operator<<(std::ostream& out, const GridHitArea& area) {
    return out << area.description();
  }

 private:
  constexpr GridHitArea(Kind kind, Int index) : kind_(kind), index_(index) {}

  Kind kind_;
  Int index_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::GridHitArea> {
  std::size_t operator()(const tolvanite::GridHitArea& area) const noexcept {
    return tolvanite::detail::mixedHash(area.isTile() ? 0 : 1, area.index());
  }
};
