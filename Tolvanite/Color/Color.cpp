#include <Tolvanite/Color/Color.h>

#include <algorithm>
#include <cmath>
#include <ostream>

#include <fmt/format.h>

#include <Tolvanite/Frame/Fatal.h>

namespace tolvanite {

namespace {

// Into 0 to 1; 0 for what is no number.
double limited(double component) { return component > 0 ? std::min(component, 1.0) : 0; }

int byteOf(double component) { return static_cast<int>(std::lround(limited(component) * 255)); }

// The hue as a part of the circle. A negative one is negated and not wrapped, deliberately: the
// schemes are what they are by it.
double hueOfDegrees(double degrees) {
  if (degrees > 360) degrees -= 360;
  if (degrees < 0) degrees = -degrees;
  return degrees / 360;
}

// The number that the text starts with, as far as 32 bits hold it.
std::uint32_t scannedHex(std::string_view text) {
  std::uint32_t value = 0;
  for (const char c : text) {
    std::uint32_t digit = 0;
    if (c >= '0' && c <= '9') {
      digit = static_cast<std::uint32_t>(c - '0');
    } else if (c >= 'a' && c <= 'f') {
      digit = static_cast<std::uint32_t>(c - 'a') + 10;
    } else if (c >= 'A' && c <= 'F') {
      digit = static_cast<std::uint32_t>(c - 'A') + 10;
    } else {
      break;
    }
    value = value << 4U | digit;
  }
  return value;
}

}  // namespace

Color Color::fromHsba(const Hsba& hsba) noexcept {
  const double saturation = limited(hsba.s);
  const double brightness = limited(hsba.b);
  const double alpha = limited(hsba.a);
  const double place = limited(hsba.h) * 6;
  const int sector = static_cast<int>(place);
  const double within = place - sector;
  const double least = brightness * (1 - saturation);
  const double falling = brightness * (1 - saturation * within);
  const double rising = brightness * (1 - saturation * (1 - within));
  switch (sector) {
    case 1:
      return Color({falling, brightness, least, alpha});
    case 2:
      return Color({least, brightness, rising, alpha});
    case 3:
      return Color({least, falling, brightness, alpha});
    case 4:
      return Color({rising, least, brightness, alpha});
    case 5:
      return Color({brightness, least, falling, alpha});
    default:  // 0, and 6 for the end of the circle, which is its start
      return Color({brightness, rising, least, alpha});
  }
}

Color Color::fromCIE_LAB(const CIE_LAB& lab) noexcept {
  const auto ratio = [](double f) {
    const double cube = f * f * f;
    return cube > 0.008856 ? cube : (f - 16.0 / 116) / 7.787;
  };
  const double fy = (lab.l + 16) / 116;
  const double fx = lab.a / 500 + fy;
  const double fz = fy - lab.b / 200;
  const double X = 0.95047 * ratio(fx);
  const double Y = ratio(fy);
  const double Z = 1.08883 * ratio(fz);

  const auto encoded = [](double linear) {
    return linear > 0.0031308 ? 1.055 * std::pow(linear, 1 / 2.4) - 0.055 : 12.92 * linear;
  };
  return Color({encoded(3.2406 * X - 1.5372 * Y - 0.4986 * Z),
                encoded(-0.9689 * X + 1.8758 * Y + 0.0415 * Z),
                encoded(0.0557 * X - 0.204 * Y + 1.057 * Z), lab.alpha});
}

Color Color::fromCmyk(const Cmyk& cmyk) noexcept {
  const auto component = [&](double ink) { return 1 - (ink * (1 - cmyk.k) + cmyk.k); };
  return Color({component(cmyk.c), component(cmyk.m), component(cmyk.y), 1});
}

Color Color::fromHex(std::string_view hex) {
  std::string digits(hex);
  std::erase(digits, '#');
  std::string_view rest = digits;
  rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n\v\f"), rest.size()));
  if (rest.starts_with("0x") || rest.starts_with("0X")) rest.remove_prefix(2);
  return fromRgb(scannedHex(rest) & 0xFFFFFFU);
}

Color::Hsba Color::hsba() const noexcept {
  const double r = limited(red());
  const double g = limited(green());
  const double b = limited(blue());
  const double alpha = limited(this->alpha());
  const double most = std::max({r, g, b});
  const double span = most - std::min({r, g, b});
  if (span == 0) return {0, 0, most, alpha};

  double sixths = 0;
  if (most == r) {
    sixths = (g - b) / span + (g < b ? 6 : 0);
  } else if (most == g) {
    sixths = (b - r) / span + 2;
  } else {
    sixths = (r - g) / span + 4;
  }
  return {sixths / 6, span / most, most, alpha};
}

std::string Color::hexString() const {
  return fmt::format("#{:02x}{:02x}{:02x}", byteOf(red()), byteOf(green()), byteOf(blue()));
}

Color Color::lightenedColor(double amount) const noexcept {
  if (amount == 0) return *this;
  Hsba result = hsba();
  result.b *= 1 + amount;
  return fromHsba(result);
}

Color Color::darkenedColor(double amount) const noexcept {
  if (amount == 0) return *this;
  Hsba result = hsba();
  result.b *= 1 - amount;
  return fromHsba(result);
}

Color Color::blackOrWhiteContrastingColor() const noexcept {
  if (*this == black) return white;
  if (*this == white) return black;
  const double luminance = 1 - (0.299 * red() + 0.587 * green() + 0.114 * blue());
  return luminance < 0.5 ? black : white;
}

Color Color::complementaryColor() const noexcept {
  if (*this == black) return white;
  if (*this == white) return black;
  Hsba result = hsba();
  result.h = hueOfDegrees(result.h * 360 + 180);
  return fromHsba(result);
}

std::array<Color, 4> Color::colorScheme(ColorScheme scheme) const {
  const auto [hue, S, B, A] = hsba();
  const double H = hue * 360;
  const auto color = [alpha = A](double degrees, double s, double b) {
    return fromHsba({hueOfDegrees(degrees), s, b, alpha});
  };
  switch (scheme) {
    case ColorScheme::analagous:
      return {color(H + 30, S - 0.05, B - 0.1), color(H + 15, S - 0.05, B - 0.05),
              color(H - 15, S - 0.05, B - 0.05), color(H - 30, S - 0.05, B - 0.1)};
    case ColorScheme::monochromatic:
      return {color(H, S / 2, B / 3), color(H, S, B / 2), color(H, S / 3, 2 * B / 3),
              color(H, S, 4 * B / 5)};
    case ColorScheme::triad:
      return {color(H + 120, 2 * S / 3, B - 0.05), color(H + 120, S, B), color(H + 240, S, B),
              color(H + 240, 2 * S / 3, B - 0.05)};
    case ColorScheme::complementary:
      return {color(H, S, 4 * B / 5), color(H, 5 * S / 7, B), color(H + 180, S, B),
              color(H + 180, 5 * S / 7, B)};
  }
  fatalFailure("No color scheme: " + std::to_string(static_cast<Int>(scheme)));
}

Color Color::mixedRGBA(const Color& withColor, double weight) const noexcept {
  const auto mixed = [weight](double own, double other) {
    return own * (1 - weight) + other * weight;
  };
  return Color({mixed(red(), withColor.red()), mixed(green(), withColor.green()),
                mixed(blue(), withColor.blue()), mixed(alpha(), withColor.alpha())});
}

std::string Color::description() const {
  return alpha() == 1 ? hexString() : fmt::format("{} alpha {}", hexString(), alpha());
}

std::ostream& operator<<(std::ostream& out, const Color& color) {
  return out << color.description();
}

}  // namespace tolvanite
