#pragma once

#include <windows.h>

#include <string_view>

#include "view/DisplayList.h"
#include "view/Source.h"

namespace wb {

/// Draws an object by its own groups into a list. `place` leads from the world coordinates of the
/// object's block to the drawing's.
using Shape = void (*)(DisplayList& list, COLORREF color, const Transform& place,
                       const Fields& fields);

/// The shape of a type of object: lines, curves, areas and texts; null for any other.
Shape shapeOf(std::string_view type);

/// A polyline with its vertices. False if it is a surface, which isn't drawn.
bool drawPolyline(DisplayList& list, COLORREF color, const Transform& place, const DxfFile& source,
                  DxfEntry entry);

/// A line of text. `verticalCode` is the group with the vertical alignment.
void drawText(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields,
              int verticalCode, const std::wstring& text);
void drawMultilineText(DisplayList& list, COLORREF color, const Transform& place,
                       const Fields& fields);

}  // namespace wb
