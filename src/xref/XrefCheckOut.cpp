#include "xref/XrefCheckOut.h"

#include <windows.h>

#include <adscodes.h>
#include <comdef.h>
#include <vector>

#include "vault/CheckedCall.h"
#include "vault/ErrorReport.h"
#include "vault/Messages.h"
#include "vault/RunMenuCmd.h"
#include "xref/SelectionSet.h"
#include "xref/UnloadedXref.h"
#include "xref/XrefInfo.h"
#include "xref/XrefPaths.h"
#include "xref/XrefWork.h"

namespace tessaro {

namespace {

/// @return false if nothing is selected, or an object that is no xref
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

bool checkOutXref(AppContext& app, const OpenedVaultFileLegacy& opened, const CString& name) {
  try {
    if (isCheckedOut(opened.file)) return false;
  } catch (const _com_error& error) {
    reportComError(app, opened.client, error, loadMessage(messages::checkOutFailed));
    return false;
  }
  UnloadedXref unloaded(name);
  unloaded.unload();
  checkOutOrReport(app, opened);
  return true;
}

bool checkInXref(AppContext& app, const OpenedVaultFileLegacy& opened) {
  try {
    if (!isCheckedOutHere(opened.file, opened.folder)) return false;
    runCheckInDialog(app, opened.folder, nameOf(opened.file));
  } catch (const _com_error& error) {
    reportComError(app, opened.client, error, loadMessage(messages::checkInFailed));
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
  OpenedVaultFileLegacy opened;
  if (!openVaultFileLegacy(app, path, opened, false)) return false;
  return lock ? checkOutXref(app, opened, name) : checkInXref(app, opened);
}

void checkOutOrReport(AppContext& app, const OpenedVaultFileLegacy& opened) {
  try {
    checkOut(app, opened.file, opened.folder);
  } catch (const _com_error& error) {
    reportComError(app, opened.client, error, loadMessage(messages::checkOutFailed));
  }
}

}  // namespace tessaro
