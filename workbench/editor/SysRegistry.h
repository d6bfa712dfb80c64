#pragma once

namespace wb {

/// Empties "ServiceDictionary", deleting what stands in it.
void clearServices();

}  // namespace wb
