#include "view/Shapes.h"

#include <utility>

namespace wb {

namespace {

using Kind = DisplayList::Kind;

void drawLine(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields) {
  list.addPath(Kind::line, color, place, {fields.point(10), fields.point(11)});
}

void drawPoint(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields) {
  list.addPath(Kind::dot, color, place, {fields.point(10)});
}

void drawSolid(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields) {
  // The third corner lies across from the second.
  const Point last = fields.has(13) ? fields.point(13) : fields.point(12);
  list.addPath(Kind::area, color, place * objectCoordinates(fields),
               {fields.point(10), fields.point(11), last, fields.point(12)});
}

void drawFace(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields) {
  list.addPath(
      Kind::line, color, place,
      {fields.point(10), fields.point(11), fields.point(12), fields.point(13), fields.point(10)});
}

void drawCircle(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields) {
  const double radius = fields.real(40);
  list.addArc(color, place * objectCoordinates(fields), fields.point(10), {radius, 0}, {0, radius},
              0, 2 * pi);
}

/// The way from one angle counterclockwise to another.
double sweepOf(double start, double end) {
  const double sweep = std::fmod(end - start, 2 * pi);
  return sweep <= 1e-9 ? sweep + 2 * pi : sweep;
}

void drawArc(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields) {
  const double radius = fields.real(40);
  const double start = radians(fields.real(50));
  list.addArc(color, place * objectCoordinates(fields), fields.point(10), {radius, 0}, {0, radius},
              start, sweepOf(start, radians(fields.real(51))));
}

void drawEllipse(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields) {
  const Point major = fields.point(11);
  const double depth = fields.real(31), ratio = fields.real(40, 1);
  const Point tilt{fields.real(210), fields.real(220)};
  const double up = fields.real(230, 1);
  const Point minor = ratio * Point{tilt.y * depth - up * major.y, up * major.x - tilt.x * depth};
  const double start = fields.real(41), end = fields.real(42, 2 * pi);
  list.addArc(color, place, fields.point(10), major, minor, start, sweepOf(start, end));
}

struct Vertex {
  Point at;
  double bulge = 0;
  double startWidth = 0, endWidth = 0;
};

/// The arc between two vertices: a bulge is the tangent of a quarter of its angle.
struct BulgeArc {
  BulgeArc(const Vertex& from, Point to) : sweep(4 * std::atan(from.bulge)) {
    const Point chord = to - from.at;
    const double rise = (1 - from.bulge * from.bulge) / (4 * from.bulge);
    centre = from.at + 0.5 * chord + rise * perpendicular(chord);
    radius = length(from.at - centre);
    start = std::atan2(from.at.y - centre.y, from.at.x - centre.x);
  }
  double sweep, radius, start;
  Point centre;
};

void addWideSegment(DisplayList& list, COLORREF color, const Transform& place, const Vertex& from,
                    Point to) {
  const bool bent = from.bulge != 0;
  const int steps = bent ? 16 : 1;
  std::vector<Point> left, right;
  for (int step = 0; step <= steps; ++step) {
    const double share = 1.0 * step / steps;
    Point at = from.at + share * (to - from.at);
    Point side = (1 / std::max(length(to - from.at), 1e-300)) * perpendicular(to - from.at);
    if (bent) {
      const BulgeArc arc(from, to);
      const Point outwards = direction(arc.start + share * arc.sweep);
      at = arc.centre + arc.radius * outwards;
      side = (arc.sweep > 0 ? -1.0 : 1.0) * outwards;
    }
    const double half = (from.startWidth + share * (from.endWidth - from.startWidth)) / 2;
    left.push_back(at + half * side);
    right.push_back(at - half * side);
  }
  left.insert(left.end(), right.rbegin(), right.rend());
  list.addPath(Kind::area, color, place, left);
}

void addVertices(DisplayList& list, COLORREF color, const Transform& place,
                 std::vector<Vertex> vertices, bool closed) {
  if (vertices.empty()) return;
  if (closed) vertices.push_back(vertices.front());
  std::vector<Point> straight{vertices.front().at};
  const auto flush = [&](Point next) {
    if (straight.size() > 1) list.addPath(Kind::line, color, place, straight);
    straight = {next};
  };
  for (size_t at = 0; at + 1 < vertices.size(); ++at) {
    const Vertex& from = vertices[at];
    const Point to = vertices[at + 1].at;
    const bool bent = from.bulge != 0 && length(to - from.at) > 0;
    if (from.startWidth != 0 || from.endWidth != 0) {
      addWideSegment(list, color, place, from, to);
      flush(to);
    } else if (bent) {
      const BulgeArc arc(from, to);
      list.addArc(color, place, arc.centre, {arc.radius, 0}, {0, arc.radius}, arc.start, arc.sweep);
      flush(to);
    } else {
      straight.push_back(to);
    }
  }
  flush({});
}

void drawLightPolyline(DisplayList& list, COLORREF color, const Transform& place,
                       const Fields& fields) {
  const double width = fields.real(43);
  std::vector<Vertex> vertices;
  for (size_t at = 0; at < fields.size(); ++at) {
    const int code = fields.code(at);
    if (code == 10) {
      vertices.push_back({{fields.realAt(at), 0}, 0, width, width});
      continue;
    }
    if (vertices.empty()) continue;
    Vertex& vertex = vertices.back();
    if (code == 20) vertex.at.y = fields.realAt(at);
    if (code == 40) vertex.startWidth = fields.realAt(at);
    if (code == 41) vertex.endWidth = fields.realAt(at);
    if (code == 42) vertex.bulge = fields.realAt(at);
  }
  addVertices(list, color, place * objectCoordinates(fields), std::move(vertices),
              (fields.whole(70) & 1) != 0);
}

void drawPlainText(DisplayList& list, COLORREF color, const Transform& place,
                   const Fields& fields) {
  drawText(list, color, place, fields, 73, fields.text(1));
}

constexpr std::pair<std::string_view, Shape> shapes[] = {
    {"LINE", drawLine},           {"LWPOLYLINE", drawLightPolyline},
    {"CIRCLE", drawCircle},       {"ARC", drawArc},
    {"ELLIPSE", drawEllipse},     {"TEXT", drawPlainText},
    {"MTEXT", drawMultilineText}, {"POINT", drawPoint},
    {"SOLID", drawSolid},         {"TRACE", drawSolid},
    {"3DFACE", drawFace},
};

}  // namespace

Shape shapeOf(std::string_view type) {
  for (const auto& [name, shape] : shapes) {
    if (name == type) return shape;
  }
  return nullptr;
}

bool drawPolyline(DisplayList& list, COLORREF color, const Transform& place, const DxfFile& source,
                  DxfEntry entry) {
  constexpr int closedFlag = 1, spatialFlag = 8, surfaceFlags = 16 | 64, frameVertexFlag = 16;
  const Fields header(source, entry);
  const int flags = header.whole(70);
  if ((flags & surfaceFlags) != 0) return false;
  std::vector<Vertex> vertices;
  for (size_t index = entry.begin + 1; index < entry.end; ++index) {
    if (!source.groups.is(index, 0, "VERTEX")) continue;
    const Fields fields(source, {index, entry.end});
    if ((fields.whole(70) & frameVertexFlag) != 0) continue;
    vertices.push_back({fields.point(10), fields.real(42), fields.real(40, header.real(40)),
                        fields.real(41, header.real(41))});
  }
  const bool spatial = (flags & spatialFlag) != 0;
  addVertices(list, color, spatial ? place : place * objectCoordinates(header), std::move(vertices),
              (flags & closedFlag) != 0);
  return true;
}

}  // namespace wb
