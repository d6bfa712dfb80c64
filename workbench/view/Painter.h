#pragma once

#include <windows.h>

#include <vector>

#include "view/Projection.h"

namespace wb {

/// Draws a display list on a dark ground.
/// @param picked the references that are marked as picked.
void paint(HDC context, SIZE window, const DisplayList& list, const Camera& camera,
           const std::vector<AcDbObjectId>& picked);

}  // namespace wb
