// A colour of red, green, blue and alpha: a palette of named ones, conversions from and to other
// models of colour, lighter and darker variants, schemes, and black or white for the text on it.
//
//   const Color accent = Color::fromHex("#2f70e1");           // Color::infoBlue is the same
//   const Color text = accent.blackOrWhiteContrastingColor();
//   const Color border = accent.darkenedColor(0.25);
//   const auto [r, g, b, a] = border.rgba();                  // each from 0 to 1
//   for (const Color& fitting : accent.colorScheme(ColorScheme::triad)) add(fitting);
//   std::cout << accent.mixedRGBA(Color::white, 0.5) << '\n';  // "#97b8f0"
//
// Colours are plain values of the sRGB space; their components are no integers, and nothing is
// rounded before a text is made.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include <Tolvanite/Color/ColorVocabulary.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A colour.
class TOLVANITE_EXPORT Color {
 public:
  /// Red, green, blue and alpha in the sRGB space, each from 0 to 1.
  struct Rgba {
    double r = 0;  ///< Red, from 0 to 1.
    double g = 0;  ///< Green, from 0 to 1.
    double b = 0;  ///< Blue, from 0 to 1.
    double a = 1;  ///< Alpha, from 0, transparent, to 1, opaque.
    friend constexpr bool operator==(const Rgba&, const Rgba&) = default;
  };

  /// Hue, saturation, brightness and alpha, each from 0 to 1.
  struct Hsba {
    double h = 0;  ///< Hue, a part of the full circle: 0 red, 1/3 green, 2/3 blue, 1 red again.
    double s = 0;  ///< Saturation, from 0, a grey, to 1, a pure hue.
    double b = 0;  ///< Brightness, the greatest of red, green and blue, from 0, black, to 1.
    double a = 1;  ///< Alpha, from 0, transparent, to 1, opaque.
    friend constexpr bool operator==(const Hsba&, const Hsba&) = default;
  };

  /// CIE 1976 L*a*b* under the D65 white.
  struct CIE_LAB {
    double l = 0;      ///< L*, the lightness, from 0, black, to 100, white.
    double a = 0;      ///< a*, from green to red, about -128 to 127.
    double b = 0;      ///< b*, from blue to yellow, about -128 to 127.
    double alpha = 1;  ///< Alpha, from 0, transparent, to 1, opaque.
    friend constexpr bool operator==(const CIE_LAB&, const CIE_LAB&) = default;
  };

  /// Parts of cyan, magenta, yellow and black, each from 0 to 1.
  struct Cmyk {
    double c = 0;  ///< Cyan, which takes away red.
    double m = 0;  ///< Magenta, which takes away green.
    double y = 0;  ///< Yellow, which takes away blue.
    double k = 0;  ///< Black, which takes away all three.
    friend constexpr bool operator==(const Cmyk&, const Cmyk&) = default;
  };

  /// Opaque black.
  constexpr Color() noexcept = default;

  /// From 24 bits, 0xRRGGBB, and an alpha from 0 to 1. What stands above the 24 bits is not cut
  /// off: it raises the red component above 1.
  static constexpr Color fromRgb(std::uint32_t rgb, double alpha = 1) noexcept {
    return Color({static_cast<double>(rgb >> 16U) / 255,
                  static_cast<double>((rgb >> 8U) & 0xFFU) / 255,
                  static_cast<double>(rgb & 0xFFU) / 255, alpha});
  }

  /// From components from 0 to 255, alpha too: each is divided by 255.
  static constexpr Color fromBytes(double R, double G, double B, double A = 255) noexcept {
    return Color({R / 255, G / 255, B / 255, A / 255});
  }

  /// From components from 0 to 1. Others are kept as they are.
  static constexpr Color fromRgba(const Rgba& rgba) noexcept { return Color(rgba); }

  /// From hue, saturation, brightness and alpha by the hexcone model (A. R. Smith, "Color Gamut
  /// Transform Pairs", 1978). What is outside of 0 to 1 is taken as the nearer of these, and what
  /// is no number as 0.
  static Color fromHsba(const Hsba& hsba) noexcept;

  /// From CIE L*a*b*, by way of XYZ (CIE 15) and the matrix and the transfer function of sRGB
  /// (IEC 61966-2-1), both in the usual four digits. A colour that sRGB does not hold gets
  /// components below 0 or above 1.
  static Color fromCIE_LAB(const CIE_LAB& lab) noexcept;

  /// From parts of printing colours, by the plain formula without a colour profile: red is
  /// 1 - (c * (1 - k) + k), green and blue are made of m and y in the same way. Opaque.
  static Color fromCmyk(const Cmyk& cmyk) noexcept;

  /// From a text as "#2F70E1", "2f70e1" or "0x2f70e1", opaque. Nothing is reported: every "#" is
  /// left out, white space in front is skipped, digits are read up to the first character that is
  /// none, and the lowest 24 bits of the number are 0xRRGGBB, whatever its length. So "F00" is the
  /// colour of 0x000F00, and a text without a number is black.
  static Color fromHex(std::string_view hex);

  /// The named colour; absent if there is none of this name. The name is that of the constant, with
  /// or without "Color" behind it: "almond", "almondColor". Linear in the number of names.
  static Optional<Color> named(std::string_view name);

  /// A component, from 0 to 1 in colours of the sRGB space.
  /// @{
  constexpr double red() const noexcept { return rgba_.r; }
  constexpr double green() const noexcept { return rgba_.g; }
  constexpr double blue() const noexcept { return rgba_.b; }
  constexpr double alpha() const noexcept { return rgba_.a; }
  /// @}

  /// The four components.
  /// @{
  constexpr Rgba rgba() const noexcept { return rgba_; }
  constexpr Rgba toRGBAComponents() const noexcept { return rgba_; }
  /// @}

  /// The components by hue, saturation and brightness, each from 0 to 1; the inverse of `fromHsba`.
  /// Greys have the hue 0, and black has the saturation 0 too. Components outside of 0 to 1 are
  /// taken as the nearer of these.
  Hsba hsba() const noexcept;

  /// "#" and two lower-case hexadecimal digits for each of red, green and blue: "#2f70e1". Each
  /// component is rounded to the nearest of 256 steps; what is outside of 0 to 1 is taken as the
  /// nearer of these. Alpha is not told.
  std::string hexString() const;

  /// The colour with a brightness of (1 + amount) times its own, at most 1. An amount of 0 gives
  /// the very same colour; a negative one darkens.
  Color lightenedColor(double amount) const noexcept;
  /// The colour with a brightness of (1 - amount) times its own, at least 0. An amount of 0 gives
  /// the very same colour; a negative one lightens.
  Color darkenedColor(double amount) const noexcept;

  /// Opaque black or white, whichever is better read on this colour: black on those of a luma above
  /// one half, white on the others. The luma is that of ITU-R BT.601, 0.299 of red, 0.587 of green
  /// and 0.114 of blue. Alpha does not count.
  Color blackOrWhiteContrastingColor() const noexcept;

  /// The colour of the opposite hue. Opaque black and white are each other's; other greys are their
  /// own.
  Color complementaryColor() const noexcept;

  /// Four colours that go with this one, which is not among them, all of its alpha; `ColorScheme`
  /// tells which. Saturation and brightness end at 0 and 1. A hue above the full circle starts it
  /// anew, but one below 0 is negated, deliberately, and not wrapped: 15 degrees less than 10
  /// are 5.
  std::array<Color, 4> colorScheme(ColorScheme scheme) const;

  /// This colour with another mixed in: each component, alpha too, is
  /// `self * (1 - weight) + other * weight`. A weight of 0 gives this colour, 1 the other one.
  Color mixedRGBA(const Color& withColor, double weight) const noexcept;

  /// The `hexString`, and " alpha A" behind it unless the colour is opaque.
  std::string description() const;

  /// Whether all four components are the same.
  friend constexpr bool operator==(const Color&, const Color&) = default;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const Color& color);

  /// An end of the greys, opaque: 0x000000 and 0xFFFFFF.
  /// @{
  static const Color black, white;
  /// @}

  /// An opaque grey whose red, green and blue are 0.25, 0.5 or 0.75: the higher the number in the
  /// name, the lighter the grey.
  /// @{
  static const Color black25Percent, black50Percent, black75Percent;
  /// @}

  /// An opaque colour of general use. Its value, 0xRRGGBB, stands with its definition in the header
  /// and can be had by `hexString`; `TolvaniteNiceColors` lists these colours and the greys above.
  /// Two of them are the same, `lightCream` and `wheat`.
  /// @{
  static const Color infoBlue, success, warning, danger, antiqueWhite, oldLace, ivory, seashell,
      ghostWhite, snow, linen, warmGray, coolGray, charcoal, teal, steelBlue, robinEgg, pastelBlue,
      turquoise, skyBlue, indigo, denim, blueberry, cornflower, babyBlue, midnightBlue, fadedBlue,
      iceberg, wave, emerald, grass, pastelGreen, seafoam, paleGreen, cactusGreen, chartreuse,
      hollyGreen, olive, oliveDrab, moneyGreen, honeydew, lime, cardTable, salmon, brickRed,
      easterPink, grapefruit, pink, indianRed, strawberry, coral, maroon, watermelon, tomato,
      pinkLipstick, paleRose, crimson, eggplant, pastelPurple, palePurple, coolPurple, violet, plum,
      lavender, raspberry, fuschia, grape, periwinkle, orchid, goldenrod, yellowGreen, banana,
      mustard, buttermilk, gold, cream, lightCream, wheat, beige, peach, burntOrange, pastelOrange,
      cantaloupe, carrot, mandarin, chiliPowder, burntSienna, chocolate, coffee, cinnamon, almond,
      eggshell, sand, mud, sienna, dust;
  /// @}

  /// A bright opaque colour of a phone's interface, or an end of one of its gradients. Its
  /// components, in hundredths, stand with its definition in the header.
  /// @{
  static const Color iOS7red, iOS7orange, iOS7yellow, iOS7green, iOS7lightBlue, iOS7darkBlue,
      iOS7purple, iOS7pink, iOS7darkGray, iOS7lightGray, iOS7redGradientStart, iOS7redGradientEnd,
      iOS7orangeGradientStart, iOS7yellowGradientStart, iOS7yellowGradientEnd,
      iOS7greenGradientStart, iOS7greenGradientEnd, iOS7tealGradientStart, iOS7tealGradientEnd,
      iOS7blueGradientStart, iOS7blueGradientEnd, iOS7violetGradientStart, iOS7violetGradientEnd,
      iOS7magentaGradientStart, iOS7magentaGradientEnd, iOS7blackGradientStart,
      iOS7blackGradientEnd, iOS7silverGradientStart, iOS7silverGradientEnd;
  /// @}

 private:
  explicit constexpr Color(const Rgba& rgba) noexcept : rgba_(rgba) {}

  Rgba rgba_;
};

inline constexpr Color Color::infoBlue = fromRgb(0x2F70E1);
inline constexpr Color Color::success = fromRgb(0x53D76A);
inline constexpr Color Color::warning = fromRgb(0xDDAA3B);
inline constexpr Color Color::danger = fromRgb(0xE5000F);
inline constexpr Color Color::antiqueWhite = fromRgb(0xFAEBD7);
inline constexpr Color Color::oldLace = fromRgb(0xFDF5E6);
inline constexpr Color Color::ivory = fromRgb(0xFFFFF0);
inline constexpr Color Color::seashell = fromRgb(0xFFF5EE);
inline constexpr Color Color::ghostWhite = fromRgb(0xF8F8FF);
inline constexpr Color Color::snow = fromRgb(0xFFFAFA);
inline constexpr Color Color::linen = fromRgb(0xFAF0E6);
inline constexpr Color Color::warmGray = fromRgb(0x857570);
inline constexpr Color Color::coolGray = fromRgb(0x767A85);
inline constexpr Color Color::charcoal = fromRgb(0x222222);
inline constexpr Color Color::teal = fromRgb(0x1CA0AA);
inline constexpr Color Color::steelBlue = fromRgb(0x6799AA);
inline constexpr Color Color::robinEgg = fromRgb(0x8DDAF7);
inline constexpr Color Color::pastelBlue = fromRgb(0x63A1F7);
inline constexpr Color Color::turquoise = fromRgb(0x70DBDB);
inline constexpr Color Color::skyBlue = fromRgb(0x00B2EE);
inline constexpr Color Color::indigo = fromRgb(0x0D4F8B);
inline constexpr Color Color::denim = fromRgb(0x4372AA);
inline constexpr Color Color::blueberry = fromRgb(0x5971AD);
inline constexpr Color Color::cornflower = fromRgb(0x6495ED);
inline constexpr Color Color::babyBlue = fromRgb(0xBEDCE6);
inline constexpr Color Color::midnightBlue = fromRgb(0x0D1A23);
inline constexpr Color Color::fadedBlue = fromRgb(0x17899B);
inline constexpr Color Color::iceberg = fromRgb(0xC8D5DB);
inline constexpr Color Color::wave = fromRgb(0x66A9FB);
inline constexpr Color Color::emerald = fromRgb(0x019875);
inline constexpr Color Color::grass = fromRgb(0x63D64A);
inline constexpr Color Color::pastelGreen = fromRgb(0x7EF27C);
inline constexpr Color Color::seafoam = fromRgb(0x4DE28C);
inline constexpr Color Color::paleGreen = fromRgb(0xB0E2AC);
inline constexpr Color Color::cactusGreen = fromRgb(0x636F57);
inline constexpr Color Color::chartreuse = fromRgb(0x458B00);
inline constexpr Color Color::hollyGreen = fromRgb(0x20570E);
inline constexpr Color Color::olive = fromRgb(0x5B7222);
inline constexpr Color Color::oliveDrab = fromRgb(0x6B8E23);
inline constexpr Color Color::moneyGreen = fromRgb(0x86C67C);
inline constexpr Color Color::honeydew = fromRgb(0xD8FFE7);
inline constexpr Color Color::lime = fromRgb(0x38ED38);
inline constexpr Color Color::cardTable = fromRgb(0x57796B);
inline constexpr Color Color::salmon = fromRgb(0xE9575F);
inline constexpr Color Color::brickRed = fromRgb(0x971B10);
inline constexpr Color Color::easterPink = fromRgb(0xF1A7A2);
inline constexpr Color Color::grapefruit = fromRgb(0xE41F36);
inline constexpr Color Color::pink = fromRgb(0xFF5F9A);
inline constexpr Color Color::indianRed = fromRgb(0xCD5C5C);
inline constexpr Color Color::strawberry = fromRgb(0xBE2625);
inline constexpr Color Color::coral = fromRgb(0xF08080);
inline constexpr Color Color::maroon = fromRgb(0x50041C);
inline constexpr Color Color::watermelon = fromRgb(0xF2473F);
inline constexpr Color Color::tomato = fromRgb(0xFF6347);
inline constexpr Color Color::pinkLipstick = fromRgb(0xFF69B4);
inline constexpr Color Color::paleRose = fromRgb(0xFFE4E1);
inline constexpr Color Color::crimson = fromRgb(0xBB1224);
inline constexpr Color Color::eggplant = fromRgb(0x690562);
inline constexpr Color Color::pastelPurple = fromRgb(0xCF64EB);
inline constexpr Color Color::palePurple = fromRgb(0xE5B4EB);
inline constexpr Color Color::coolPurple = fromRgb(0x8C5DE4);
inline constexpr Color Color::violet = fromRgb(0xBF5FFF);
inline constexpr Color Color::plum = fromRgb(0x8B668B);
inline constexpr Color Color::lavender = fromRgb(0xCC99CC);
inline constexpr Color Color::raspberry = fromRgb(0x872657);
inline constexpr Color Color::fuschia = fromRgb(0xFF1493);
inline constexpr Color Color::grape = fromRgb(0x360B58);
inline constexpr Color Color::periwinkle = fromRgb(0x879FED);
inline constexpr Color Color::orchid = fromRgb(0xDA70D6);
inline constexpr Color Color::goldenrod = fromRgb(0xD7AA33);
inline constexpr Color Color::yellowGreen = fromRgb(0xC0F227);
inline constexpr Color Color::banana = fromRgb(0xE5E33A);
inline constexpr Color Color::mustard = fromRgb(0xCDAB2D);
inline constexpr Color Color::buttermilk = fromRgb(0xFEF1B5);
inline constexpr Color Color::gold = fromRgb(0x8B7512);
inline constexpr Color Color::cream = fromRgb(0xF0E2BB);
inline constexpr Color Color::lightCream = fromRgb(0xF0EED7);
inline constexpr Color Color::wheat = fromRgb(0xF0EED7);
inline constexpr Color Color::beige = fromRgb(0xF5F5DC);
inline constexpr Color Color::peach = fromRgb(0xF2BB61);
inline constexpr Color Color::burntOrange = fromRgb(0xB86625);
inline constexpr Color Color::pastelOrange = fromRgb(0xF8C58F);
inline constexpr Color Color::cantaloupe = fromRgb(0xFA9A4F);
inline constexpr Color Color::carrot = fromRgb(0xED9121);
inline constexpr Color Color::mandarin = fromRgb(0xF79137);
inline constexpr Color Color::chiliPowder = fromRgb(0xC73F17);
inline constexpr Color Color::burntSienna = fromRgb(0x8A360F);
inline constexpr Color Color::chocolate = fromRgb(0x5E2605);
inline constexpr Color Color::coffee = fromRgb(0x8D3C0F);
inline constexpr Color Color::cinnamon = fromRgb(0x7B3F09);
inline constexpr Color Color::almond = fromRgb(0xC48E48);
inline constexpr Color Color::eggshell = fromRgb(0xFCE6C9);
inline constexpr Color Color::sand = fromRgb(0xDEB697);
inline constexpr Color Color::mud = fromRgb(0x462D1D);
inline constexpr Color Color::sienna = fromRgb(0xA0522D);
inline constexpr Color Color::dust = fromRgb(0xECD6C5);

inline constexpr Color Color::black = fromRgb(0x000000);
inline constexpr Color Color::white = fromRgb(0xFFFFFF);
inline constexpr Color Color::black25Percent = fromRgba({0.25, 0.25, 0.25});
inline constexpr Color Color::black50Percent = fromRgba({0.5, 0.5, 0.5});
inline constexpr Color Color::black75Percent = fromRgba({0.75, 0.75, 0.75});

inline constexpr Color Color::iOS7red = fromRgba({1.00, 0.22, 0.22});
inline constexpr Color Color::iOS7orange = fromRgba({1.00, 0.58, 0.21});
inline constexpr Color Color::iOS7yellow = fromRgba({1.00, 0.79, 0.28});
inline constexpr Color Color::iOS7green = fromRgba({0.27, 0.85, 0.46});
inline constexpr Color Color::iOS7lightBlue = fromRgba({0.18, 0.67, 0.84});
inline constexpr Color Color::iOS7darkBlue = fromRgba({0.00, 0.49, 0.96});
inline constexpr Color Color::iOS7purple = fromRgba({0.35, 0.35, 0.81});
inline constexpr Color Color::iOS7pink = fromRgba({1.00, 0.17, 0.34});
inline constexpr Color Color::iOS7darkGray = fromRgba({0.56, 0.56, 0.58});
inline constexpr Color Color::iOS7lightGray = fromRgba({0.78, 0.78, 0.80});
inline constexpr Color Color::iOS7redGradientStart = fromRgba({1.00, 0.37, 0.23});
inline constexpr Color Color::iOS7redGradientEnd = fromRgba({1.00, 0.16, 0.41});
inline constexpr Color Color::iOS7orangeGradientStart = fromRgba({1.00, 0.58, 0.00});
inline constexpr Color Color::iOS7yellowGradientStart = fromRgba({1.00, 0.86, 0.30});
inline constexpr Color Color::iOS7yellowGradientEnd = fromRgba({1.00, 0.80, 0.01});
inline constexpr Color Color::iOS7greenGradientStart = fromRgba({0.53, 0.99, 0.44});
inline constexpr Color Color::iOS7greenGradientEnd = fromRgba({0.04, 0.83, 0.09});
inline constexpr Color Color::iOS7tealGradientStart = fromRgba({0.32, 0.93, 0.78});
inline constexpr Color Color::iOS7tealGradientEnd = fromRgba({0.35, 0.78, 0.98});
inline constexpr Color Color::iOS7blueGradientStart = fromRgba({0.10, 0.84, 0.99});
inline constexpr Color Color::iOS7blueGradientEnd = fromRgba({0.11, 0.38, 0.94});
inline constexpr Color Color::iOS7violetGradientStart = fromRgba({0.78, 0.27, 0.99});
inline constexpr Color Color::iOS7violetGradientEnd = fromRgba({0.35, 0.34, 0.84});
inline constexpr Color Color::iOS7magentaGradientStart = fromRgba({0.94, 0.30, 0.71});
inline constexpr Color Color::iOS7magentaGradientEnd = fromRgba({0.78, 0.26, 0.99});
inline constexpr Color Color::iOS7blackGradientStart = fromRgba({0.29, 0.29, 0.29});
inline constexpr Color Color::iOS7blackGradientEnd = fromRgba({0.17, 0.17, 0.17});
inline constexpr Color Color::iOS7silverGradientStart = fromRgba({0.86, 0.87, 0.87});
inline constexpr Color Color::iOS7silverGradientEnd = fromRgba({0.54, 0.55, 0.56});

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::Color> {
  std::size_t operator()(const tolvanite::Color& color) const noexcept {
    const std::hash<double> ofComponent;
    std::size_t result = ofComponent(color.red());
    for (const double component : {color.green(), color.blue(), color.alpha()}) {
      result = result * 31 + ofComponent(component);
    }
    return result;
  }
};
