#include "vault/OpenVaultFile.h"

#include "vault/VaultSteps.h"

namespace tessaro {

namespace {

bool loggedIn(const VaultClientPtr&, HRESULT result) { return SUCCEEDED(result); }

bool loggedIn(const VaultClientLegacyPtr& client, HRESULT result) {
  check(result, *client);
  return true;
}

/// The lookup of the current generation may succeed without a file.
bool isFound(const VaultFilePtr& file) { return file; }

bool isFound(const VaultFileLegacyPtr&) { return true; }

template <class Opened>
bool openFile(const AppContext& app, const CString& path, Opened& opened, bool raiseUnexpected) {
  auto& [client, folder, file] = opened;
  _bstr_t vaultName;
  if (!reachVault(path, client, vaultName, raiseUnexpected)) return false;
  if (loggedIn(client, logIn(app, client, vaultName)) &&
      succeededOr({E_QVT_FILE_NOT_FOUND, E_QVT_PERMISSION_DENIED}, raiseUnexpected,
                  findFile(client, path, folder, file), *client) &&
      isFound(file)) {
    return true;
  }
  client = nullptr;
  return false;
}

}  // namespace

bool openVaultFile(AppContext& app, const CString& path, OpenedVaultFile& opened,
                   bool raiseUnexpected) {
  return openFile(app, path, opened, raiseUnexpected);
}

bool openVaultFileLegacy(AppContext& app, const CString& path, OpenedVaultFileLegacy& opened,
                         bool raiseUnexpected) {
  return openFile(app, path, opened, raiseUnexpected);
}

}  // namespace tessaro
