#include "xref/XrefCheckOut.h"

#include <windows.h>

#include <adscodes.h>
#include <comdef.h>
#include <vector>

#include "vault/CheckedCall.h"
#include "vault/ErrorReport.h"
#include "vault/ItemIdList.h"
#include "vault/MessageStrings.h"
#include "vault/OpenVaultFile.h"
#include "vault/RunMenuCmd.h"
#include "xref/SelectionSet.h"
#include "xref/UnloadedXref.h"
#include "xref/XrefInfo.h"
#include "xref/XrefPaths.h"
#include "xref/XrefWork.h"

namespace tessaro {

namespace {

struct LegacyFile {
  VaultClientLegacyPtr client;
  VaultFolderLegacyPtr folder;
  VaultFileLegacyPtr file;
};

/// @return false if nothing is selected, or something that is no xref.
bool pickXrefs(std::vector<XrefInfo>& xrefs) {
  SelectionSet picked;
  if (picked.get(nullptr) != RTNORM) return false;
  const long count = picked.length();
  if (count < 0) return false;
  for (long index = 0; index < count; ++index) {
    AcDbObjectId entity;
    XrefInfo xref;
    if (!picked.at(index, entity) || !readXrefReference(entity, xref)) return false;
    xrefs.push_back(xref);
  }
  return true;
}

bool checkOutXref(AppContext& app, LegacyFile& vault, const CString& name) {
  const auto report = [&](const _com_error& error) {
    reportComError(app, vault.client, error, loadMessage(10, "Error checking out file."));
  };
  try {
    if (isCheckedOut(vault.file)) return false;
  } catch (const _com_error& error) {
    report(error);
    return false;
  }
  UnloadedXref unloaded(name);
  unloaded.unload();
  try {
    checkOut(app, vault.file, vault.folder);
  } catch (const _com_error& error) {
    report(error);
  }
  return true;
}

bool checkInXref(AppContext& app, LegacyFile& vault) {
  try {
    if (!isCheckedOutHere(vault.file, vault.folder)) return false;
    const _bstr_t name = nameOf(vault.file);
    RunMenuCmd(shellFolderOf(vault.folder), name, L"Unlock").doModal(app.mainWindow);
  } catch (const _com_error& error) {
    reportComError(app, vault.client, error, loadMessage(11, "Error checking in file."));
  }
  return true;
}

}  // namespace

void xrefCommand(AppContext& app, bool lock) {
  std::vector<XrefInfo> xrefs;
  if (!pickXrefs(xrefs)) return;
  for (const XrefInfo& xref : xrefs) changeXrefCheckOut(app, xref.path, xref.name, lock);
}

bool changeXrefCheckOut(AppContext& app, CString path, const CString& name, bool lock) {
  if (!makeAbsolute(path)) return false;
  const XrefWork work;
  LegacyFile vault;
  if (!openVaultFileLegacy(app, path, vault.client, vault.folder, vault.file, false)) return false;
  return lock ? checkOutXref(app, vault, name) : checkInXref(app, vault);
}

}  // namespace tessaro
