// A colour with the name to show for it, and the list of the nice ones that a program may offer.
//
//   for (const auto& [name, color] : TolvaniteNiceColors()) menu.add(name, color);
//   TolvaniteNiceColors().front()   "almondColor #c48e48"
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include <Tolvanite/Color/Color.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A name and its colour.
struct NamedColor {
  /// What to show, and what `Color::named` finds in these lists: the constant's name, in
  /// `TolvaniteNiceColors` with "Color" behind it.
  std::string name;
  /// The colour of that name.
  Color color;

  /// The name and the colour's text: "almondColor #c48e48".
  std::string description() const { return name + " " + color.description(); }

  friend bool operator==(const NamedColor&, const NamedColor&) = default;
  friend std::ostream& operator<<(std::ostream& out, const NamedColor& namedColor) {
    return out << namedColor.description();
  }
};

/// The 99 colours of general use, in the order of the alphabet. Each name is that of the constant
/// with "Color" behind it: "almondColor" is Color::almond. Made at the first call; lives to the
/// end.
TOLVANITE_EXPORT const std::vector<NamedColor>& TolvaniteNiceColors();

/// All named colours: the nice ones in their order, then black, white and the phone's, in the order
/// of their declaration. Each name is that of the constant: "almond". Made at the first call; lives
/// to the end.
TOLVANITE_EXPORT const std::vector<NamedColor>& allNamedColors();

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::NamedColor> {
  std::size_t operator()(const tolvanite::NamedColor& namedColor) const noexcept {
    return std::hash<std::string>()(namedColor.name) * 31 +
           std::hash<tolvanite::Color>()(namedColor.color);
  }
};
