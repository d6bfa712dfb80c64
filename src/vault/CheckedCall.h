#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

// Calls on the client whose failure raises _com_error. Null in place of an object raises E_POINTER.

/// Raises the failure `result` of a call on `object`, with what the object says about it
/// (_com_issue_errorex); does nothing for a success.
template <class Interface>
void check(HRESULT result, Interface& object) {
  if (FAILED(result)) _com_issue_errorex(result, &object, __uuidof(Interface));
}

/// The object behind a pointer, which must not be null.
template <class Interface>
Interface& required(Interface* object) {
  if (object == nullptr) _com_issue_error(E_POINTER);
  return *object;
}

/// The host's main window in the form that the client takes: the low half of the handle.
long parentWindow(const AppContext& app);

/// The name of anything that is a VaultObject: a file, a state, a user.
_bstr_t nameOf(IUnknown* object);
_bstr_t nameOf(VaultFileLegacy* file);

/// The id of anything that is a VaultObject.
long idOf(IUnknown* object);
long idOf(VaultFolderLegacy* folder);

/// Whether anybody holds the file.
bool isCheckedOut(VaultFile* file);
bool isCheckedOut(VaultFileLegacy* file);

/// Whether the user holds the file in this very folder.
bool isCheckedOutHere(VaultFileLegacy* file, VaultFolderLegacy* folder);

/// Checks the file out in this folder.
void checkOut(const AppContext& app, VaultFile* file, VaultFolder* folder);
void checkOut(const AppContext& app, VaultFileLegacy* file, VaultFolderLegacy* folder);

/// The local path of the view's root, as the client gives it: perhaps with a backslash at its end.
/// @param client logged in
CString rootFolderPath(VaultClient* client);

/// Copies the latest version of the file to its local path.
void getLocalCopy(const AppContext& app, VaultFile* file, const CString& path);

}  // namespace tessaro
