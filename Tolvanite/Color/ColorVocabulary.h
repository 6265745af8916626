// The words in which colours are talked about: kinds of schemes, of components, of distances and of
// orders. `Color::colorScheme` takes a ColorScheme; the other three are for hosts that compare or
// store colours themselves.
//
//   const auto colors = Color::denim.colorScheme(ColorScheme::analagous);
//   std::cout << ColorScheme::analagous << '\n';   // "analagous"
#pragma once

#include <iosfwd>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// What `Color::colorScheme` makes of a colour of the hue H in degrees, the saturation S and the
/// brightness B, in this order.
enum class ColorScheme : Int {
  /// The neighbours in hue, spelt so: (H+30, S-0.05, B-0.1), (H+15, S-0.05, B-0.05),
  /// (H-15, S-0.05, B-0.05), (H-30, S-0.05, B-0.1).
  analagous,
  /// The same hue: (H, S/2, B/3), (H, S, B/2), (H, S/3, 2B/3), (H, S, 4B/5).
  monochromatic,
  /// The other two of three hues at equal distances: (H+120, 2S/3, B-0.05), (H+120, S, B),
  /// (H+240, S, B), (H+240, 2S/3, B-0.05).
  triad,
  /// The same hue and the opposite one: (H, S, 4B/5), (H, 5S/7, B), (H+180, S, B),
  /// (H+180, 5S/7, B).
  complementary,
};

/// The components that a colour is described by.
enum class ColorFormulation : Int { rgba, hsba, lab, cmyk };

/// The formulas of the CIE for the difference between two colours, by their years.
enum class ColorDistance : Int { cie76, cie94, cie2000 };

/// What colours may be ordered by.
enum class ColorComparison : Int { darkness, lightness, desaturated, saturated };

/// The name of the case; the raw number of a value that is none.
/// @{
TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, ColorScheme scheme);
TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, ColorFormulation formulation);
TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, ColorDistance distance);
TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, ColorComparison comparison);
/// @}

}  // namespace tolvanite
