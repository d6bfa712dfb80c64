#pragma once

#include <memory>
#include <vector>

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/VaultInterfaces.h"

class AcDbDatabase;

namespace tessaro {

// From a path to its file in the vault. Nothing is remembered between two calls: each makes the
// client's main object, logs in and looks the file up. If the main object can't be made, each tells
// the user so.

/// Finds the file of a path, with a client that is logged in to its vault. Nothing is said of a
/// path outside the vaults, a vault that is offline, a login that fails or a file that isn't there.
/// @param raiseUnexpected whether other failures of the client are raised, or give false as well
/// @return whether all three are there. A client may be left behind otherwise: it is the caller's
/// to release.
/// @throws _com_error if asked for
bool openVaultFile(AppContext& app, const CString& path, VaultClientPtr& client,
                   VaultFolderPtr& folder, VaultFilePtr& file, bool raiseUnexpected);

/// The same in the client's older generation.
/// @throws _com_error also for a login that fails, whether asked for or not
bool openVaultFileLegacy(AppContext& app, const CString& path, VaultClientLegacyPtr& client,
                         VaultFolderLegacyPtr& folder, VaultFileLegacyPtr& file,
                         bool raiseUnexpected);

/// Opens the query interface of the vault that the path lies in.
/// @return false if the path lies in no vault, or the vault is offline
/// @throws _com_error for any other failure
bool openVaultQuery(AppContext& app, const CString& path, VaultClientPtr& client,
                    VaultQueryPtr& query);

/// Thrown by value where a plain number tells the outcome. It is no HRESULT.
struct ResultCode {
  long value;
};

/// What the comparison of many files with the vault needs of their view.
struct VaultViewRecord {
  long rootFolderId = 0;
  VaultClientPtr client;
  VaultQueryPtr query;
  /// The view's local root, without a backslash at its end.
  CString rootPath;
};

/// Opens the view that the path lies in.
/// @throws ResultCode 2 if `openVaultQuery` gives false, 3 if the client has no access to root
/// folders
/// @throws _com_error for any other failure
void openVaultViewRecord(AppContext& app, std::unique_ptr<VaultViewRecord>& record,
                         const CString& path);

/// The current drawing in its vault.
struct DrawingVaultContext {
  VaultClientLegacyPtr client;
  VaultFileLegacyPtr file;
  VaultFolderLegacyPtr folder;
  /// The host's.
  AcDbDatabase* database = nullptr;
  CString path;
};

/// For a command that needs an open drawing, saved in a vault, and a client that isn't too old. The
/// user is told what is missing, except that nothing is said of a vault that is offline.
/// @param requiredMajor 0 for any client
/// @return S_OK, or the failure; nothing is raised
HRESULT OpenVaultContext(AppContext& app, DrawingVaultContext& context, long requiredMajor,
                         long requiredMinor);

/// Whose a file is.
enum CheckOutState {
  /// Or offline, or in no vault at all.
  notInVault = 0,
  checkedOutHere = 1,
  checkedOutElsewhere = 2,
  notCheckedOut = 3
};

/// One version of a file.
struct VersionEntry {
  long version;
  CString comment;
};

/// Whose the file of a path is.
/// @param versions gets the file's versions appended in the client's order; null if not wanted
/// @throws _com_error for failures other than a path outside the vaults or a file that isn't there
CheckOutState readCheckOutState(AppContext& app, const CString& path,
                                std::vector<VersionEntry>* versions);

/// The same for a window or a menu of the host's, which no exception may leave: a failure is told
/// to the user and counts as notInVault; versions that were read before it stay.
CheckOutState readCheckOutStateOrTell(AppContext& app, const CString& path,
                                      std::vector<VersionEntry>* versions);

/// What is wanted of a file. Null leaves a value out, and the client isn't asked for it then.
struct FileStatus {
  CString* fileName = nullptr;
  CString* stateName = nullptr;
  long* localVersion = nullptr;
  long* latestVersion = nullptr;
  bool* isCheckedOut = nullptr;
  bool* isCheckedOutHere = nullptr;
  CString* holderName = nullptr;
  CString* holderComputer = nullptr;
  CString* holderPath = nullptr;
};

/// Reads what is wanted of the file of a path. A failure of the client is told to the user; values
/// that were read before it stay.
/// @return whether the file was found and everything read
bool readFileStatus(AppContext& app, const CString& path, const FileStatus& wanted);

/// Whether the file is held on this computer and in this folder. Both references are given up.
/// @throws _com_error
bool isHeldHere(AppContext& app, VaultFilePtr& file, VaultFolderPtr& folder);

/// Whether the user has taken the vault offline on this computer.
bool isVaultOffline(const wchar_t* vaultName);

/// Reads an identifier of a view or its vault out of the view's desktop.ini.
/// @param rootPath the view's root; with or without a backslash at its end
/// @param kind 1 for the view, 2 for the vault
/// @return false, and `identifier` as it was, if there is no well-formed one
bool readViewIdentifier(const CString& rootPath, int kind, GUID& identifier);

}  // namespace tessaro
