#include "view/DisplayList.h"

#include "view/Font.h"

namespace wb {

void DisplayList::add(Kind kind, COLORREF color, std::initializer_list<Point> itsPoints,
                      std::wstring text) {
  items.push_back({kind, color, points.size(), itsPoints.size(), texts.size()});
  points.insert(points.end(), itsPoints);
  if (!text.empty()) texts.push_back(std::move(text));
}

void DisplayList::addPath(Kind kind, COLORREF color, const Transform& place,
                          const std::vector<Point>& path) {
  if (path.empty()) return;
  items.push_back({kind, color, points.size(), path.size(), 0});
  for (const Point& point : path) {
    points.push_back(place(point));
    extents.add(points.back());
  }
}

Point DisplayList::arcPoint(const Item& arc, double share) const {
  const Point* const p = &points[arc.first];
  const Point at = direction(p[3].x + share * p[3].y);
  return p[0] + at.x * p[1] + at.y * p[2];
}

void DisplayList::addArc(COLORREF color, const Transform& place, Point centre, Point axis,
                         Point otherAxis, double start, double sweep) {
  const Point u = place.vector(axis), v = place.vector(otherAxis);
  add(Kind::arc, color, {place(centre), u, v, {start, sweep}}, {});
  const Item& arc = items.back();
  for (const double share : {0.0, 1.0}) extents.add(arcPoint(arc, share));
  // It turns back where one coordinate's slope is nought.
  for (const double turn : {std::atan2(v.x, u.x), std::atan2(v.y, u.y)}) {
    for (const double angle : {turn, turn + pi}) {
      const double way = std::fmod((angle - start) * (sweep < 0 ? -1 : 1), 2 * pi);
      const double share = (way < 0 ? way + 2 * pi : way) / std::abs(sweep);
      if (share <= 1) extents.add(arcPoint(arc, share));
    }
  }
}

void DisplayList::addText(COLORREF color, const Transform& place, std::wstring text) {
  if (text.empty()) return;
  const double width = textWidth(text);
  for (const double x : {0.0, width}) {
    for (const double y : {0.0, 1.0}) extents.add(place({x, y}));
  }
  add(Kind::text, color, {place.o, place.u, place.v}, std::move(text));
}

void DisplayList::addLabel(COLORREF color, Point at, std::wstring text) {
  extents.add(at);
  add(Kind::label, color, {at}, std::move(text));
}

}  // namespace wb
