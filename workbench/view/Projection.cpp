#include "view/Projection.h"

#include "view/Font.h"

namespace wb {

namespace {

using Item = DisplayList::Item;
using Kind = DisplayList::Kind;

constexpr double margin = 0.94;     // share of the window that a fitted drawing takes
constexpr double reach = 5;         // pixels around a click
constexpr double farthest = 30000;  // pixels, of a label

/// How an arc is broken into straight lines, fine enough for its size in pixels.
int stepsOf(double radius, double sweep) {
  const double full = std::clamp(3 * std::sqrt(radius), 8.0, 512.0);
  return std::max(1, static_cast<int>(std::ceil(full * std::abs(sweep) / (2 * pi))));
}

double distance(Point p, Point from, Point to) {
  const Point way = to - from;
  const double square = way.x * way.x + way.y * way.y;
  const Point start = p - from;
  const double share =
      square == 0 ? 0 : std::clamp((start.x * way.x + start.y * way.y) / square, 0.0, 1.0);
  return length(start - share * way);
}

bool isInside(Point p, const std::vector<Point>& outline) {
  bool inside = false;
  for (size_t at = 0, before = outline.size() - 1; at < outline.size(); before = at++) {
    const Point a = outline[at], b = outline[before];
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
      inside = !inside;
    }
  }
  return inside;
}

}  // namespace

Camera Camera::fitting(const Box& box, SIZE window) {
  Camera camera;
  if (box.empty()) return camera;
  const Point size = box.high - box.low;
  camera.centre = box.low + 0.5 * size;
  const double wide = size.x > 0 ? window.cx / size.x : std::numeric_limits<double>::infinity();
  const double high = size.y > 0 ? window.cy / size.y : std::numeric_limits<double>::infinity();
  const double scale = margin * std::min(wide, high);
  camera.scale = std::isfinite(scale) && scale > 0 ? scale : 1;
  return camera;
}

Point Camera::toWindow(Point p, SIZE window) const {
  return {(p.x - centre.x) * scale + window.cx / 2.0, window.cy / 2.0 - (p.y - centre.y) * scale};
}

Point Camera::toDrawing(POINT p, SIZE window) const {
  return {(p.x - window.cx / 2.0) / scale + centre.x, (window.cy / 2.0 - p.y) / scale + centre.y};
}

const std::vector<Point>& Projection::outline(const Item& item) {
  result.clear();
  const Point* const p = &list.points[item.first];
  if (item.kind == Kind::arc) {
    const double radius = std::max(length(p[1]), length(p[2])) * camera.scale;
    const int steps = stepsOf(radius, p[3].y);
    for (int at = 0; at <= steps; ++at) add(list.arcPoint(item, 1.0 * at / steps));
  } else if (item.kind == Kind::text) {
    const Point along = textWidth(list.texts[item.text]) * p[1];
    for (const Point& corner : {p[0], p[0] + along, p[0] + along + p[2], p[0] + p[2], p[0]}) {
      add(corner);
    }
  } else if (item.kind == Kind::label) {
    const RECT frame = label(item);
    for (const auto& [x, y] : {std::pair(frame.left, frame.top),
                               {frame.right, frame.top},
                               {frame.right, frame.bottom},
                               {frame.left, frame.bottom},
                               {frame.left, frame.top}}) {
      result.push_back({1.0 * x, 1.0 * y});
    }
  } else {
    for (size_t at = 0; at < item.count; ++at) add(p[at]);
  }
  return result;
}

RECT Projection::label(const Item& item) const {
  const std::wstring& text = list.texts[item.text];
  const Point at = camera.toWindow(list.points[item.first], window);
  const auto width =
      static_cast<LONG>(textWidth(text) * labelHeight * capitalHeight() / fontEm) + 4;
  const LONG wide = width + 2 * labelMargin.cx, high = labelHeight + 2 * labelMargin.cy + 3;
  auto left = static_cast<LONG>(std::clamp(at.x, -farthest, farthest));
  auto top = static_cast<LONG>(std::clamp(at.y, -farthest, farthest)) - high;
  if (left >= 0 && left <= window.cx) left = std::max(0L, std::min(left, window.cx - wide));
  if (top >= -high && top + high <= window.cy) top = std::max(0L, top);
  return {left, top, left + wide, top + high};
}

bool Projection::seen() const {
  Box box;
  for (const Point& p : result) box.add(p);
  return !box.empty() && box.high.x >= 0 && box.high.y >= 0 && box.low.x <= window.cx &&
         box.low.y <= window.cy;
}

const DisplayList::Reference* referenceAt(POINT at, SIZE window, const DisplayList& list,
                                          const Camera& camera) {
  Projection projection(list, camera, window);
  const Point click{1.0 * at.x, 1.0 * at.y};
  const DisplayList::Reference* nearest = nullptr;
  double least = reach;
  for (const DisplayList::Reference& reference : list.references) {
    for (size_t index = reference.first; index < reference.end; ++index) {
      const Item& item = list.items[index];
      const std::vector<Point>& outline = projection.outline(item);
      const bool filled =
          item.kind == Kind::area || item.kind == Kind::text || item.kind == Kind::label;
      double away = filled && isInside(click, outline) ? 0 : reach + 1;
      for (size_t p = 0; p < outline.size(); ++p) {
        away = std::min(away, distance(click, outline[p], outline[p == 0 ? 0 : p - 1]));
      }
      // Of two that are as near, the one drawn last lies on top.
      if (away > least) continue;
      least = away;
      nearest = &reference;
    }
  }
  return nearest;
}

}  // namespace wb
