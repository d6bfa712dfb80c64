#include "xref/EditXref.h"

#include <windows.h>

#include <acdocman.h>
#include <acedads.h>
#include <dbmain.h>

#include <acedxref.h>

#include <comdef.h>
#include <memory>

#include "vault/CheckedCall.h"
#include "vault/ErrorReport.h"
#include "vault/Messages.h"
#include "vault/OpenVaultFile.h"
#include "xref/UnloadedXref.h"
#include "xref/XrefCheckOut.h"
#include "xref/XrefInfo.h"
#include "xref/XrefList.h"
#include "xref/XrefPaths.h"
#include "xref/XrefWork.h"

namespace tessaro {

namespace {

enum class CheckOutNeed { none, checkOut, refused };

CheckOutNeed checkOutNeedOf(AppContext& app, const OpenedVaultFileLegacy& opened) {
  try {
    if (!isCheckedOut(opened.file)) return CheckOutNeed::checkOut;
    if (isCheckedOutHere(opened.file, opened.folder)) return CheckOutNeed::none;
    acedPrompt(loadMessage(messages::xrefCheckedOutElsewhere));
  } catch (const _com_error& error) {
    reportComError(app, opened.client, error, loadMessage(messages::checkOutStateFailed));
  }
  return CheckOutNeed::refused;
}

/// @return false if the xref can't be edited; the reason was reported
bool unloadForEditing(AppContext& app, const XrefInfo& xref, UnloadedXref& unloaded) {
  const XrefWork work;
  OpenedVaultFileLegacy opened;
  CheckOutNeed need = CheckOutNeed::none;
  if (openVaultFileLegacy(app, xref.path, opened, false)) {
    need = checkOutNeedOf(app, opened);
    if (need == CheckOutNeed::refused) return false;
  }
  unloaded.unload();
  if (need == CheckOutNeed::checkOut) checkOutOrReport(app, opened);
  return true;
}

}  // namespace

void editxref(AppContext& app, XrefList& pendingReloads) {
  XrefInfo xref;
  if (!selectXref(xref, false) || !makeAbsolute(xref.path)) return;
  if (isOpenForEditing(app, xref.path)) {
    acedPrompt(loadMessage(messages::xrefAlreadyOpen));
    return;
  }
  UnloadedXref unloaded(xref.name);
  if (!unloadForEditing(app, xref, unloaded)) return;
  CString path = xref.path;
  CharUpperW(path.data());
  pendingReloads.add(path, xref.name, acDocManagerPtr()->curDocument());
  // The xref is reloaded when the user returns to this drawing.
  unloaded.leaveUnloaded();
  // A document can't be opened in another document's context.
  app.laterCalls.inApplicationContext(
      [path] { acDocManagerPtr()->appContextOpenDocument(path.c_str()); });
}

bool isOpenForEditing(AppContext&, const CString& path, AcApDocument** found) {
  const std::unique_ptr<AcApDocumentIterator> open(acDocManagerPtr()->newAcApDocumentIterator());
  for (; !open->done(); open->step()) {
    AcApDocument* document = open->document();
    // No copy, which could fail for lack of memory: an xref would then stay unloaded.
    const ACHAR* name = document->fileName();
    const bool same = name != nullptr && lstrcmpiW(name, path.c_str()) == 0;
    if (!same || document->isReadOnly()) continue;
    if (found) *found = document;
    return true;
  }
  return false;
}

void onDocumentActivated(AppContext& app, XrefList& pendingReloads, AcApDocument* document) {
  for (bool found = pendingReloads.findFirstOfDocument(document); found;
       found = pendingReloads.findNext()) {
    if (isOpenForEditing(app, pendingReloads.currentPath())) continue;
    const CString name = pendingReloads.removeCurrent();
    acedXrefReload(name.c_str(), true, nullptr);
  }
}

void onDocumentToBeDestroyed(AppContext&, XrefList& pendingReloads, AcApDocument* document) {
  for (bool found = pendingReloads.findFirstOfDocument(document); found;
       found = pendingReloads.findNext()) {
    pendingReloads.removeCurrent();
  }
}

}  // namespace tessaro
