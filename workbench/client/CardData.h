#pragma once

#include "TessaroClient.h"
#include "client/FileObject.h"

namespace wb {

/// The data-card access of a file.
Owned<VaultCardData> cardDataObject(const FileState& file);

}  // namespace wb
