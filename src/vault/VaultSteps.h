#pragma once

#include <algorithm>
#include <initializer_list>

#include "foundation/CString.h"
#include "vault/CheckedCall.h"
#include "vault/OpenVaultFile.h"
#include "vault/ResultCodes.h"

namespace tessaro {

// The steps from a path to its vault that the routines of OpenVaultFile.h share. `ClientPtr` is the
// holder of either generation's main interface: the operations have the same names in both.

/// Tells a failure that was to be expected from one that is to be raised.
/// @return whether the call succeeded
template <class Interface>
bool succeededOr(std::initializer_list<HRESULT> expected, bool raiseUnexpected, HRESULT result,
                 Interface& object) {
  if (SUCCEEDED(result)) return true;
  if (raiseUnexpected && std::find(expected.begin(), expected.end(), result) == expected.end()) {
    _com_issue_errorex(result, &object, __uuidof(Interface));
  }
  return false;
}

/// Tells the user that the client's main object can't be made.
void tellClientMissing();

/// Makes the client's main object in place of the one that is held, runs it (OleRun) and asks for
/// the interface; tells the user if that fails, and leaves the holder null then.
template <class ClientPtr>
HRESULT createClientOrTell(ClientPtr& client) {
  const HRESULT result = client.CreateInstance(__uuidof(VaultMain), nullptr, CLSCTX_ALL);
  if (FAILED(result)) tellClientMissing();
  return result;
}

/// The name of the vault that the path lies in.
/// @return the client's result
template <class ClientPtr>
HRESULT findVaultName(const ClientPtr& client, const CString& path, _bstr_t& vaultName) {
  return client->vaultNameFromPath(_bstr_t(path.c_str()), vaultName.GetAddress());
}

template <class ClientPtr>
HRESULT logIn(const AppContext& app, const ClientPtr& client, const _bstr_t& vaultName) {
  return client->login(vaultName, parentWindow(app));
}

/// Looks the path up; the holders are emptied first.
template <class ClientPtr, class FolderPtr, class FilePtr>
HRESULT findFile(const ClientPtr& client, const CString& path, FolderPtr& folder, FilePtr& file) {
  return client->fileFromPath(_bstr_t(path.c_str()), &folder, &file);
}

/// All that comes before the login: makes the client, finds the vault and sees whether it is
/// online. The client stays set for an offline vault and is released for a path outside all vaults.
/// @param raiseUnexpected whether to raise what isn't the answer for such a path
template <class ClientPtr>
bool reachVault(const CString& path, ClientPtr& client, _bstr_t& vaultName, bool raiseUnexpected) {
  if (FAILED(createClientOrTell(client))) return false;
  if (!succeededOr({E_QVT_KEY_NOT_FOUND}, raiseUnexpected, findVaultName(client, path, vaultName),
                   *client)) {
    client = nullptr;
    return false;
  }
  return !isVaultOffline(vaultName);
}

}  // namespace tessaro
