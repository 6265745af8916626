// A colour of a picture: an array of pixels is an RGBA byte buffer.
//
//   Matrix<Pixel> picture(640, 480, Pixel(255, 255, 255));
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <type_traits>

#include <Tolvanite/Frame/TextForm.h>

namespace tolvanite {

/// Red, green, blue and opacity, 0 to 255 each; opaque black if made without arguments.
struct Pixel {
  constexpr Pixel() = default;
  /// Of these components; opaque unless told.
  constexpr Pixel(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha = 255)
      : r(red), g(green), b(blue), a(alpha) {}

  /// "Pixel(R, G, B, A)".
  std::string description() const {
    return "Pixel(" + textForm(r) + ", " + textForm(g) + ", " + textForm(b) + ", " + textForm(a) +
           ")";
  }

  friend constexpr bool operator==(const Pixel&, const Pixel&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Pixel& pixel) {
    return out << pixel.description();
  }

  std::uint8_t r = 0;    ///< Red.
  std::uint8_t g = 0;    ///< Green.
  std::uint8_t b = 0;    ///< Blue.
  std::uint8_t a = 255;  ///< Opacity, from 0, transparent, to 255, opaque.
};

static_assert(sizeof(Pixel) == 4 && alignof(Pixel) == 1 && std::is_trivially_copyable_v<Pixel> &&
              std::is_standard_layout_v<Pixel>);

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::Pixel> {
  std::size_t operator()(const tolvanite::Pixel& pixel) const noexcept {
    return std::size_t{pixel.r} | std::size_t{pixel.g} << 8U | std::size_t{pixel.b} << 16U |
           std::size_t{pixel.a} << 24U;
  }
};
