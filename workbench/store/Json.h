#pragma once

#include <string>
#include <vector>

#include "store/Records.h"

namespace wb {

/// The vaults as the text of store.json, and back.
std::string vaultsToJson(const std::vector<StoredVault>& vaults);

/// @throws std::exception if the text isn't what vaultsToJson writes
std::vector<StoredVault> vaultsFromJson(const std::string& text);

}  // namespace wb
