#pragma once

#include <algorithm>
#include <initializer_list>

#include "foundation/CString.h"
#include "vault/CheckedCall.h"
#include "vault/ResultCodes.h"
#include "vault/VaultOffline.h"

namespace tessaro {

// The steps from a path to its vault. `ClientPtr` is the holder of either generation's main
// interface; both have operations of the same names.

/// Throws for a failed call, unless the failure is an expected one.
/// @param raiseUnexpected false: never throw
/// @return whether the call succeeded
/// @throws _com_error
template <class Interface>
bool succeededOr(std::initializer_list<HRESULT> expected, bool raiseUnexpected, HRESULT result,
                 Interface& object) {
  if (SUCCEEDED(result)) return true;
  if (raiseUnexpected && std::find(expected.begin(), expected.end(), result) == expected.end()) {
    _com_issue_errorex(result, &object, __uuidof(Interface));
  }
  return false;
}

/// Reports in a box that the client's main object can't be created.
void reportClientMissing();

/// Replaces the main object that is held by a new one. A failure is reported in a box.
/// @param client null after a failure
/// @return the result of the creation
template <class ClientPtr>
HRESULT createClientOrReport(ClientPtr& client) {
  const HRESULT result = client.CreateInstance(__uuidof(VaultMain), nullptr, CLSCTX_ALL);
  if (FAILED(result)) reportClientMissing();
  return result;
}

/// Finds the vault that a path lies in.
/// @return the client's result
template <class ClientPtr>
HRESULT findVaultName(const ClientPtr& client, const CString& path, _bstr_t& vaultName) {
  return client->vaultNameFromPath(_bstr_t(path.c_str()), vaultName.GetAddress());
}

/// @return the client's result
template <class ClientPtr>
HRESULT logIn(const AppContext& app, const ClientPtr& client, const _bstr_t& vaultName) {
  return client->login(vaultName, parentWindow(app));
}

/// Releases what the holders hold and looks a path up.
/// @return the client's result
template <class ClientPtr, class FolderPtr, class FilePtr>
HRESULT findFile(const ClientPtr& client, const CString& path, FolderPtr& folder, FilePtr& file) {
  return client->fileFromPath(_bstr_t(path.c_str()), &folder, &file);
}

/// The steps before the login: creates the client and finds the vault.
/// @param client released for a path outside all vaults, kept for a vault that is offline
/// @param raiseUnexpected whether to throw for failures other than a path outside all vaults
/// @return whether the path lies in a vault that is online
/// @throws _com_error if `raiseUnexpected` is set
template <class ClientPtr>
bool reachVault(const CString& path, ClientPtr& client, _bstr_t& vaultName, bool raiseUnexpected) {
  if (FAILED(createClientOrReport(client))) return false;
  if (!succeededOr({E_QVT_KEY_NOT_FOUND}, raiseUnexpected, findVaultName(client, path, vaultName),
                   *client)) {
    client = nullptr;
    return false;
  }
  return !isVaultOffline(vaultName);
}

}  // namespace tessaro
