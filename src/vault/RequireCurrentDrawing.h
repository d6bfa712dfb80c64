#pragma once

#include "foundation/CurrentDrawing.h"

namespace tessaro {

/// The current drawing, for a command that needs one. If no drawing is open, a box says so.
/// @return an empty one if no drawing is open
CurrentDrawing requireCurrentDrawing();

}  // namespace tessaro
