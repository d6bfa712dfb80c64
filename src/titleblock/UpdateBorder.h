#pragma once

#include "foundation/AppContext.h"

namespace tessaro {

/// The commands `update` and `updatecurrent`: write the values of the drawing's card variables into
/// the attributes that the vault's mappings name. Reports failures itself.
/// @param currentLayoutOnly only references on the active layout.
void UpdateBorder(AppContext& app, bool currentLayoutOnly);

}  // namespace tessaro
