#pragma once

namespace tessaro {

/// Whether the user has taken the vault offline on this computer.
/// @param vaultName null or empty for no vault, which is online
bool isVaultOffline(const wchar_t* vaultName);

}  // namespace tessaro
