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

/// A place on the plane, in whatever unit the host measures; (0, 0) if made without arguments.
struct CGPoint {
  constexpr CGPoint() = default;
  /// The point at these distances from the origin of the plane.
  constexpr CGPoint(double ownX, double ownY) : x(ownX), y(ownY) {}

  /// "(X, Y)".
  std::string description() const { return "(" + textForm(x) + ", " + textForm(y) + ")"; }

  friend constexpr bool operator==(const CGPoint&, const CGPoint&) = default;
  friend std::ostream& operator<<(std::ostream& out, const CGPoint& point) {
    return out << point.description();
  }

  double x = 0;  ///< Grows rightward.
  double y = 0;  ///< Grows upward.
};

/// A width and a height, or the way from one point to another; (0, 0) if made without arguments.
struct CGSize {
  constexpr CGSize() = default;
  /// Of these lengths, which may be negative; nothing is checked.
  constexpr CGSize(double ownWidth, double ownHeight) : width(ownWidth), height(ownHeight) {}

  /// "(WIDTH, HEIGHT)".
  std::string description() const { return "(" + textForm(width) + ", " + textForm(height) + ")"; }

  friend constexpr bool operator==(const CGSize&, const CGSize&) = default;
  friend std::ostream& operator<<(std::ostream& out, const CGSize& size) {
    return out << size.description();
  }

  double width = 0;   ///< Rightward; leftward if negative.
  double height = 0;  ///< Upward; downward if negative.
};

/// A rectangle by one corner and the way from it to the opposite one, which may lead backward.
struct CGRect {
  constexpr CGRect() = default;
  /// The rectangle between a corner and the point that far from it.
  /// @{
  constexpr CGRect(CGPoint ownOrigin, CGSize ownSize) : origin(ownOrigin), size(ownSize) {}
  constexpr CGRect(double x, double y, double width, double height)
      : CGRect(CGPoint(x, y), CGSize(width, height)) {}
  /// @}

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

  /// A corner: the lower left one if the size is not negative.
  CGPoint origin;
  /// From that corner to the opposite one. Two rectangles of the same edges but other signs are not
  /// equal.
  CGSize size;
};

/// Margins at the four edges of a rectangle, measured inward; 0 if made without arguments.
struct NSEdgeInsets {
  constexpr NSEdgeInsets() = default;
  /// In the order of the edges counter-clockwise from the top; nothing is checked.
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

  /// The distance from that edge of the rectangle inward; outward if negative.
  /// @{
  double top = 0;
  double left = 0;
  double bottom = 0;
  double right = 0;
  /// @}
};

}  // namespace tolvanite
