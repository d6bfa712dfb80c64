#include "vault/VaultView.h"

#include <shlwapi.h>

#include <algorithm>

#include "vault/VaultSteps.h"

namespace tessaro {

namespace {

/// The client has its query interface only after these numbers.
void openGate(const VaultClientPtr& client) {
  VaultGatePtr gate;
  check(client->QueryInterface(__uuidof(VaultGate), reinterpret_cast<void**>(&gate)), *client);
  for (const long code : {3176520L, 19980117L, 5201874L}) check(gate->presentCode(code), *gate);
}

}  // namespace

bool openVaultQuery(AppContext& app, const CString& path, VaultClientPtr& client,
                    VaultQueryPtr& query) {
  _bstr_t vaultName;
  if (!reachVault(path, client, vaultName, true)) return false;
  check(logIn(app, client, vaultName), *client);
  openGate(client);
  check(client->QueryInterface(__uuidof(VaultQuery), reinterpret_cast<void**>(&query)), *client);
  return true;
}

void openVaultViewRecord(AppContext& app, std::unique_ptr<VaultViewRecord>& record,
                         const CString& path) {
  record = std::make_unique<VaultViewRecord>();
  if (!openVaultQuery(app, path, record->client, record->query)) throw ResultCode{2};
  VaultRootFolderAccessPtr access;
  if (FAILED(record->client->QueryInterface(__uuidof(VaultRootFolderAccess),
                                            reinterpret_cast<void**>(&access)))) {
    throw ResultCode{3};
  }
  VaultObjectPtr rootFolder;
  check(access->rootFolder(&rootFolder), *access);
  record->rootFolderId = idOf(rootFolder);

  CString& rootPath = record->rootPath;
  rootPath = rootFolderPath(record->client);
  // The shell's path functions may use a buffer of MAX_PATH characters.
  rootPath.resize(std::max<size_t>(rootPath.size(), MAX_PATH));
  PathRemoveBackslashW(rootPath.data());
  rootPath.resize(wcslen(rootPath.c_str()));
}

}  // namespace tessaro
