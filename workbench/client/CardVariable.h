#pragma once

#include "client/ComObject.h"
#include "store/Records.h"
#include "TessaroClient.h"

namespace wb {

/// A variable of a data card, as it was when the card was read.
Owned<VaultCardVariable> cardVariableObject(const CardVariable& variable);

}  // namespace wb
