#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace wb {

constexpr double pi = 3.14159265358979323846;

constexpr double radians(double degrees) { return degrees * pi / 180; }

struct Point {
  double x = 0, y = 0;
};

inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
inline Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
inline Point operator*(double factor, Point p) { return {factor * p.x, factor * p.y}; }
inline double length(Point p) { return std::hypot(p.x, p.y); }
/// The vector turned by a quarter, counterclockwise.
inline Point perpendicular(Point p) { return {-p.y, p.x}; }
/// The vector of length 1 in a direction, in radians.
inline Point direction(double angle) { return {std::cos(angle), std::sin(angle)}; }

/// Maps (x, y) to x * u + y * v + o.
struct Transform {
  Point u{1, 0}, v{0, 1}, o;

  Point vector(Point p) const { return p.x * u + p.y * v; }
  Point operator()(Point p) const { return vector(p) + o; }

  static Transform translation(Point by) { return {{1, 0}, {0, 1}, by}; }
  static Transform rotation(double angle) {
    return {direction(angle), perpendicular(direction(angle)), {}};
  }
  static Transform scaling(double x, double y) { return {{x, 0}, {0, y}, {}}; }
};

/// First `inner`, then `outer`.
inline Transform operator*(const Transform& outer, const Transform& inner) {
  return {outer.vector(inner.u), outer.vector(inner.v), outer(inner.o)};
}

/// The rectangle around points.
struct Box {
  Point low{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  Point high{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

  bool empty() const { return low.x > high.x; }
  void add(Point p) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return;
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
};

}  // namespace wb
