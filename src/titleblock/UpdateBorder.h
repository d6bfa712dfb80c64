#pragma once

#include "foundation/AppContext.h"

namespace tessaro {

/// The commands `update` and `updatecurrent`: write the values of the current drawing's card
/// variables into the attributes of the vault's mappings. Failures are reported in a box.
/// @param currentLayoutOnly only references on the active layout
void UpdateBorder(AppContext& app, bool currentLayoutOnly);

}  // namespace tessaro
