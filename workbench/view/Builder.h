#pragma once

#include "view/DisplayList.h"

namespace wb {

class Drawing;

/// The display list of the drawing's current layout as it is now.
DisplayList displayListOf(const Drawing& drawing);

}  // namespace wb
