#pragma once

#include <windows.h>

namespace wb {

/// The colour of an index of the host's table, 1 to 255; 7 is white, as on a dark ground.
COLORREF colorOfIndex(int index);

}  // namespace wb
