#pragma once

#include <windows.h>

#include <dbid.h>

#include <map>
#include <string>
#include <vector>

#include "view/Geometry.h"

namespace wb {

/// What is drawn of a drawing's layout, in its own coordinates and in the order of drawing. Made
/// once for each state of the drawing and painted at every scale.
class DisplayList {
 public:
  enum class Kind {
    line,   ///< points in a row
    area,   ///< the corners of a filled area
    arc,    ///< of an ellipse: centre, axis at angle 0, axis at 90 degrees, (start, sweep)
    text,   ///< of `texts`: origin, a capital's height along the base line, the same upwards
    dot,    ///< a point
    label,  ///< of `texts`, in a dashed frame of a size that doesn't follow the scale
  };
  struct Item {
    Kind kind;
    COLORREF color;
    size_t first;  ///< of its points
    size_t count;
    size_t text;
  };
  /// A block reference that stands on the layout itself, with what is seen of it.
  struct Reference {
    AcDbObjectId id;
    Point place;
    size_t first, end;  ///< of its items
  };

  void addPath(Kind kind, COLORREF color, const Transform& place, const std::vector<Point>& points);
  /// @param start, sweep in radians.
  void addArc(COLORREF color, const Transform& place, Point centre, Point axis, Point otherAxis,
              double start, double sweep);
  /// @param place maps a capital's height on the base line to the drawing.
  void addText(COLORREF color, const Transform& place, std::wstring text);
  void addLabel(COLORREF color, Point at, std::wstring text);
  /// A point of an arc.
  Point arcPoint(const Item& arc, double share) const;

  std::vector<Item> items;
  std::vector<Point> points;
  std::vector<std::wstring> texts;
  std::vector<Reference> references;
  std::map<std::string, int> leftOut;  ///< how many entities of each type aren't drawn
  std::vector<std::wstring> remarks;   ///< what the file notes at its end
  Box extents;

 private:
  void add(Kind kind, COLORREF color, std::initializer_list<Point> itsPoints, std::wstring text);
};

}  // namespace wb
