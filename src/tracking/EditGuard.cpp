#include "tracking/EditGuard.h"

#include <windows.h>

#include <acdocman.h>

#include "foundation/AddinSettings.h"
#include "foundation/AppMessageBox.h"
#include "foundation/CommandNames.h"
#include "foundation/CommandText.h"
#include "foundation/CurrentDrawing.h"
#include "foundation/FormatText.h"
#include "foundation/HostExtras.h"
#include "vault/CheckedCall.h"
#include "vault/FileStatus.h"
#include "vault/Messages.h"
#include "vault/OpenVaultFile.h"

namespace tessaro {

namespace {

/// `isHeldHere` on copies of the holders, since it releases those that it is called with.
bool heldHere(AppContext& app, const OpenedVaultFile& opened) {
  VaultFilePtr file = opened.file;
  VaultFolderPtr folder = opened.folder;
  return isHeldHere(app, file, folder);
}

/// @return the document's flag, null if the document has been destroyed
bool* warningDue(GuardedDocuments& guarded, AcApDocument* document) {
  const auto entry = guarded.find(document);
  return entry != guarded.end() ? &entry->second : nullptr;
}

}  // namespace

void editGuardCheck(AppContext& app, GuardedDocuments& guarded, AcApDocument* document) {
  const CString path = textOf(document->fileName());
  if (path.empty() || addinSettingOrDefault(addinSettings::editWarning) == 0) return;

  OpenedVaultFile vaultFile;
  const bool isFirstCheck = guarded.insert({document, false}).second;
  if (isFirstCheck) {
    if (!openVaultFile(app, path, vaultFile, false)) return;
    if (heldHere(app, vaultFile)) return;
    // The client may have shown a window meanwhile, and the document may have been destroyed.
    if (bool* due = warningDue(guarded, document)) *due = true;
  }
  bool* const due = warningDue(guarded, document);
  if (due == nullptr || !*due || !isCurrentDrawingModified()) return;

  *due = false;
  if (!isFirstCheck && !openVaultFile(app, path, vaultFile, false)) return;
  const bool isHeld = heldHere(app, vaultFile);
  nameOf(vaultFile.file);
  if (isHeld) return;
  const bool checkedOut = isCheckedOut(vaultFile.file);
  if (warningDue(guarded, document) == nullptr) return;
  sendToCommandLine(
      document, commandText(app, checkedOut ? commands::tellLockedElsewhere : commands::askLock));
}

void guardAskLock(AppContext& app, AcApDocument* document) {
  const CString path = textOf(document->fileName());
  if (path.empty()) return;
  if (!askYesNo(formatText(loadMessage(messages::askCheckOutEdited), {path}).c_str())) return;
  acdbSetDbmod(document->database(), 0);
  const CString escape = L"\x1B";
  sendToCommandLine(document, escape + commandText(app, commands::lockSilent));
}

void guardTellLockedElsewhere(AppContext&, AcApDocument* document) {
  const CString path = textOf(document->fileName());
  if (path.empty()) return;
  const CString text = formatText(loadMessage(messages::editedCheckedOutElsewhere), {path});
  appMessageBox(text.c_str(), MB_ICONEXCLAMATION);
}

}  // namespace tessaro
