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
#include "vault/MessageStrings.h"
#include "vault/OpenVaultFile.h"
#include "xref/UnloadedXref.h"
#include "xref/XrefInfo.h"
#include "xref/XrefList.h"
#include "xref/XrefPaths.h"
#include "xref/XrefWork.h"

namespace tessaro {

namespace {

enum class CheckOutNeed { none, checkOut, refused };

/// The xref's file in the vault, if it is in one.
struct EditedFile {
  VaultClientLegacyPtr client;
  VaultFolderLegacyPtr folder;
  VaultFileLegacyPtr file;

  CheckOutNeed need(AppContext& app);
  void checkOutForEditing(AppContext& app);
};

CheckOutNeed EditedFile::need(AppContext& app) {
  try {
    if (!isCheckedOut(file)) return CheckOutNeed::checkOut;
    if (isCheckedOutHere(file, folder)) return CheckOutNeed::none;
    acedPrompt(loadMessage(54, "Cannot edit Xref. File is checked out elsewhere."));
  } catch (const _com_error& error) {
    reportComError(app, client, error, loadMessage(12, "Error getting check out data."));
  }
  return CheckOutNeed::refused;
}

void EditedFile::checkOutForEditing(AppContext& app) {
  try {
    checkOut(app, file, folder);
  } catch (const _com_error& error) {
    reportComError(app, client, error, loadMessage(10, "Error checking out file."));
  }
}

/// @return false if the xref can't be edited; the user has been told.
bool unloadForEditing(AppContext& app, const XrefInfo& xref, UnloadedXref& unloaded) {
  const XrefWork work;
  EditedFile vault;
  CheckOutNeed need = CheckOutNeed::none;
  if (openVaultFileLegacy(app, xref.path, vault.client, vault.folder, vault.file, false)) {
    need = vault.need(app);
    if (need == CheckOutNeed::refused) return false;
  }
  unloaded.unload();
  if (need == CheckOutNeed::checkOut) vault.checkOutForEditing(app);
  return true;
}

}  // namespace

void editxref(AppContext& app, XrefList& pendingReloads) {
  XrefInfo xref;
  if (!selectXref(xref, false) || !makeAbsolute(xref.path)) return;
  if (isOpenForEditing(app, xref.path)) {
    acedPrompt(loadMessage(53, "An instance of this Xref is already open for editing."));
    return;
  }
  UnloadedXref unloaded(xref.name);
  if (!unloadForEditing(app, xref, unloaded)) return;
  CString path = xref.path;
  CharUpperW(path.data());
  pendingReloads.add(path, xref.name, acDocManagerPtr()->curDocument());
  // From here on the return to the parent loads the xref.
  unloaded.leaveUnloaded();
  // A document's context can't open another document.
  app.laterCalls.inApplicationContext(
      [path] { acDocManagerPtr()->appContextOpenDocument(path.c_str()); });
}

bool isOpenForEditing(AppContext&, const CString& path, AcApDocument** found) {
  const std::unique_ptr<AcApDocumentIterator> open(acDocManagerPtr()->newAcApDocumentIterator());
  for (; !open->done(); open->step()) {
    AcApDocument* document = open->document();
    // Without a copy: what a lack of memory kept unloaded would stay so until the next activation.
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
