#include "vault/OpenVaultFile.h"

#include <shlwapi.h>

#include "foundation/AppMessageBox.h"
#include "vault/MessageStrings.h"
#include "vault/VaultSteps.h"

namespace tessaro {

namespace {

/// What sets the generations of the client apart in the opening of a file.
struct CurrentGeneration {
  static bool logIn(const AppContext& app, const VaultClientPtr& client, const _bstr_t& name) {
    return SUCCEEDED(tessaro::logIn(app, client, name));
  }
  /// Its lookup may succeed without a file.
  static bool isFound(const VaultFilePtr& file) { return file; }
};

struct OlderGeneration {
  static bool logIn(const AppContext& app, const VaultClientLegacyPtr& client,
                    const _bstr_t& name) {
    check(tessaro::logIn(app, client, name), *client);
    return true;
  }
  static bool isFound(const VaultFileLegacyPtr&) { return true; }
};

template <class Generation, class ClientPtr, class FolderPtr, class FilePtr>
bool openFile(const AppContext& app, const CString& path, ClientPtr& client, FolderPtr& folder,
              FilePtr& file, bool raiseUnexpected) {
  _bstr_t vaultName;
  if (!reachVault(path, client, vaultName, raiseUnexpected)) return false;
  if (Generation::logIn(app, client, vaultName) &&
      succeededOr({E_QVT_FILE_NOT_FOUND, E_QVT_PERMISSION_DENIED}, raiseUnexpected,
                  findFile(client, path, folder, file), *client) &&
      Generation::isFound(file)) {
    return true;
  }
  client = nullptr;
  return false;
}

/// The client gives its query interface only to those who know these numbers.
void openGate(const VaultClientPtr& client) {
  VaultGatePtr gate;
  check(client->QueryInterface(__uuidof(VaultGate), reinterpret_cast<void**>(&gate)), *client);
  for (const long code : {3176520L, 19980117L, 5201874L}) check(gate->presentCode(code), *gate);
}

}  // namespace

void tellClientMissing() {
  appMessageBox(
      loadMessage(
          3, "Can't create interface towards Tessaro.\nIs Tessaro installed on this computer?"),
      MB_ICONINFORMATION);
}

bool openVaultFile(AppContext& app, const CString& path, VaultClientPtr& client,
                   VaultFolderPtr& folder, VaultFilePtr& file, bool raiseUnexpected) {
  return openFile<CurrentGeneration>(app, path, client, folder, file, raiseUnexpected);
}

bool openVaultFileLegacy(AppContext& app, const CString& path, VaultClientLegacyPtr& client,
                         VaultFolderLegacyPtr& folder, VaultFileLegacyPtr& file,
                         bool raiseUnexpected) {
  return openFile<OlderGeneration>(app, path, client, folder, file, raiseUnexpected);
}

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
  // Room for as much as the shell's path functions may write.
  rootPath.resize(std::max<size_t>(rootPath.size(), MAX_PATH));
  PathRemoveBackslashW(rootPath.data());
  rootPath.resize(wcslen(rootPath.c_str()));
}

}  // namespace tessaro
