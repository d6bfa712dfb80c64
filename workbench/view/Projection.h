#pragma once

#include <windows.h>

#include <vector>

#include "view/DisplayList.h"

namespace wb {

/// Which part of a drawing is seen, and how large.
struct Camera {
  Point centre;
  double scale = 1;  ///< pixels for a unit of the drawing

  /// All of the box, with a margin.
  static Camera fitting(const Box& box, SIZE window);
  Point toWindow(Point p, SIZE window) const;
  Point toDrawing(POINT p, SIZE window) const;
};

/// What one item of a display list is in pixels of the window.
class Projection {
 public:
  static constexpr SIZE labelMargin{5, 3};
  static constexpr int labelHeight = 14;

  Projection(const DisplayList& list, const Camera& camera, SIZE window)
      : list(list), camera(camera), window(window) {}

  /// The item's points; those of an arc along it, those of a text or label around it.
  const std::vector<Point>& outline(const DisplayList::Item& item);
  /// Whether something of the outline that was asked for last may lie in the window.
  bool seen() const;
  /// The frame of a label, which stays inside the window while its place is seen.
  RECT label(const DisplayList::Item& item) const;

 private:
  void add(Point p) { result.push_back(camera.toWindow(p, window)); }

  const DisplayList& list;
  const Camera& camera;
  const SIZE window;
  std::vector<Point> result;
};

/// The reference whose lines or areas are nearest to a place in the window, no more than a few
/// pixels away; null if there is none.
const DisplayList::Reference* referenceAt(POINT at, SIZE window, const DisplayList& list,
                                          const Camera& camera);

}  // namespace wb
