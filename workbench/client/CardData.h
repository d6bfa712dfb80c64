#pragma once

#include "client/FileObject.h"
#include "TessaroClient.h"

namespace wb {

/// The data-card access of a file.
Owned<VaultCardData> cardDataObject(const FileState& file);

}  // namespace wb
