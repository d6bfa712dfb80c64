#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

// Calls on the client that throw a _com_error for a failure, and for a null object (E_POINTER).

/// Throws for the failed result of a call on `object`, with the object's error information
/// (_com_issue_errorex).
/// @throws _com_error if `result` is a failure
template <class Interface>
void check(HRESULT result, Interface& object) {
  if (FAILED(result)) _com_issue_errorex(result, &object, __uuidof(Interface));
}

/// @return the object behind the pointer
/// @throws _com_error E_POINTER for null
template <class Interface>
Interface& required(Interface* object) {
  if (object == nullptr) _com_issue_error(E_POINTER);
  return *object;
}

/// @return the host's main window as the client's argument: the low half of the handle
long parentWindow(const AppContext& app);

/// @param object leads to VaultObject: a file, a state, a user
/// @return its name
_bstr_t nameOf(IUnknown* object);

/// @return the file's name
_bstr_t nameOf(VaultFileLegacy* file);

/// @param object leads to VaultObject
/// @return its id
long idOf(IUnknown* object);

/// @return the folder's id
long idOf(VaultFolderLegacy* folder);

/// Whether the file is checked out by any user.
bool isCheckedOut(VaultFile* file);

/// The same in the older generation.
bool isCheckedOut(VaultFileLegacy* file);

/// Whether the file is checked out by this user in this folder.
bool isCheckedOutHere(VaultFileLegacy* file, VaultFolderLegacy* folder);

/// Checks the file out in this folder.
void checkOut(const AppContext& app, VaultFile* file, VaultFolder* folder);

/// The same in the older generation.
void checkOut(const AppContext& app, VaultFileLegacy* file, VaultFolderLegacy* folder);

/// @param client logged in
/// @return the local path of the view's root, with or without a backslash at its end
CString rootFolderPath(VaultClient* client);

/// Fetches the latest version of the file.
/// @param path the file's local path
void getLocalCopy(const AppContext& app, VaultFile* file, const CString& path);

}  // namespace tessaro
