// Points, sizes, rectangles and margins on a plane of 64-bit floats, for hosts without such types
// of their own. y grows upward.
//
//   const CGRect selection({80, 60}, {-30, 10});   // dragged leftward
//   selection.minX();                              // 50
#pragma once

#include <ostream>
#include <string>

#include <Tolvanite/Frame/TextForm.h>

namespace tolvanite {

struct CGPoint {
  constexpr CGPoint() = default;
  constexpr CGPoint(double ownX, double ownY) : x(ownX), y(ownY) {}

  /// "(X, Y)".
  std::string description() const { return "(" + textForm(x) + ", " + textForm(y) + ")"; }

  friend constexpr bool operator==(const CGPoint&, const CGPoint&) = default;
  friend std::ostream& operator<<(std::ostream& out, const CGPoint& point) {
    return out << point.description();
  }

  double x = 0;
  double y = 0;
};

struct CGSize {
  constexpr CGSize() = default;
  constexpr CGSize(double ownWidth, double ownHeight) : width(ownWidth), height(ownHeight) {}

  /// "(WIDTH, HEIGHT)".
  std::string description() const { return "(" + textForm(width) + ", " + textForm(height) + ")"; }

  friend constexpr bool operator==(const CGSize&, const CGSize&) = default;
  friend std::ostream& operator<<(std::ostream& out, const CGSize& size) {
    return out << size.description();
  }

  double width = 0;
  double height = 0;
};

/// A rectangle by one corner and the way from it to the opposite one, which may lead backward.
struct CGRect {
  constexpr CGRect() = default;
  constexpr CGRect(CGPoint ownOrigin, CGSize ownSize) : origin(ownOrigin), size(ownSize) {}
  constexpr CGRect(double x, double y, double width, double height)
      : CGRect(CGPoint(x, y), CGSize(width, height)) {}

  /// The edges, in their order on the plane whatever the signs of the size.
  /// @{
  constexpr double minX() const { return size.width < 0 ? origin.x + size.width : origin.x; }
  constexpr double maxX() const { return size.width < 0 ? origin.x : origin.x + size.width; }
  constexpr double minY() const { return size.height < 0 ? origin.y + size.height : origin.y; }
  constexpr double maxY() const { return size.height < 0 ? origin.y : origin.y + size.height; }
  /// @}

  /// "(X, Y, WIDTH, HEIGHT)".
  std::string description() const {
    return "(" + textForm(origin.x) + ", " + textForm(origin.y) + ", " + textForm(size.width) +
           ", " + textForm(size.height) + ")";
  }

  friend constexpr bool operator==(const CGRect&, const CGRect&) = default;
  friend std::ostream& operator<<(std::ostream& out, const CGRect& rect) {
    return out << rect.description();
  }

  CGPoint origin;
  CGSize size;
};

/// Margins at the four edges of a rectangle.
struct NSEdgeInsets {
  constexpr NSEdgeInsets() = default;
  constexpr NSEdgeInsets(double ownTop, double ownLeft, double ownBottom, double ownRight)
      : top(ownTop), left(ownLeft), bottom(ownBottom), right(ownRight) {}

  /// "NSEdgeInsets(top: T, left: L, bottom: B, right: R)".
  std::string description() const {
    return "NSEdgeInsets(top: " + textForm(top) + ", left: " + textForm(left) +
           ", bottom: " + textForm(bottom) + ", right: " + textForm(right) + ")";
  }

  friend constexpr bool operator==(const NSEdgeInsets&, const NSEdgeInsets&) = default;
  friend std::ostream& operator<<(std::ostream& out, const NSEdgeInsets& insets) {
    return out << insets.description();
  }

  double top = 0;
  double left = 0;
  double bottom = 0;
  double right = 0;
};

}  // namespace tolvanite
