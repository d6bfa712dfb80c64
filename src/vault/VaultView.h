#pragma once

#include <memory>

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

/// Opens the query interface of the vault that a path lies in.
/// @return false if the path lies in no vault, or the vault is offline
/// @throws _com_error for any other failure
bool openVaultQuery(AppContext& app, const CString& path, VaultClientPtr& client,
                    VaultQueryPtr& query);

/// An outcome that is thrown by value. It is no HRESULT.
struct ResultCode {
  long value;
};

/// A view with the query interface of its vault.
struct VaultViewRecord {
  long rootFolderId = 0;
  VaultClientPtr client;
  VaultQueryPtr query;
  /// The view's local root, without a backslash at its end.
  CString rootPath;
};

/// Opens the view that a path lies in.
/// @throws ResultCode 2 if `openVaultQuery` returns false, 3 if the client has no access to root
/// folders
/// @throws _com_error for any other failure
void openVaultViewRecord(AppContext& app, std::unique_ptr<VaultViewRecord>& record,
                         const CString& path);

}  // namespace tessaro
