#include "tracking/EditGuard.h"

#include <windows.h>

#include <acdocman.h>

#include "foundation/AppMessageBox.h"
#include "foundation/CommandText.h"
#include "foundation/FormatText.h"
#include "foundation/HostExtras.h"
#include "foundation/Registry.h"
#include "vault/CheckedCall.h"
#include "vault/CurrentDrawing.h"
#include "vault/MessageStrings.h"
#include "vault/OpenVaultFile.h"

namespace tessaro {

namespace {

/// The guarded file as the vault gives it, opened for one check.
struct GuardedFile {
  VaultClientPtr client;
  VaultFolderPtr folder;
  VaultFilePtr file;

  bool open(AppContext& app, const CString& path) {
    return openVaultFile(app, path, client, folder, file, false);
  }

  /// isHeldHere gives its references up, so it gets its own.
  bool heldHere(AppContext& app) const {
    VaultFilePtr heldFile = file;
    VaultFolderPtr heldFolder = folder;
    return isHeldHere(app, heldFile, heldFolder);
  }
};

/// The document's flag; null once the document has gone.
bool* warningDue(GuardedDocuments& guarded, AcApDocument* document) {
  const auto entry = guarded.find(document);
  return entry != guarded.end() ? &entry->second : nullptr;
}

bool guardIsOff() {
  DWORD warn = 0;
  return readAddinSetting(L"EditWarning", warn) && warn == 0;
}

}  // namespace

void editGuardCheck(AppContext& app, GuardedDocuments& guarded, AcApDocument* document) {
  const CString path = textOf(document->fileName());
  if (path.empty() || guardIsOff()) return;

  GuardedFile vaultFile;
  bool opened = false;
  if (guarded.insert({document, false}).second) {
    if (!vaultFile.open(app, path)) return;
    opened = true;
    if (vaultFile.heldHere(app)) return;
    // The client may have shown windows of its own, and the document have gone meanwhile.
    if (bool* due = warningDue(guarded, document)) *due = true;
  }
  bool* const due = warningDue(guarded, document);
  if (due == nullptr || !*due || !isCurrentDrawingModified()) return;

  *due = false;
  if (!opened && !vaultFile.open(app, path)) return;
  const bool heldHere = vaultFile.heldHere(app);
  nameOf(vaultFile.file);
  if (heldHere) return;
  const bool checkedOut = isCheckedOut(vaultFile.file);
  if (warningDue(guarded, document) == nullptr) return;
  sendToCommandLine(document, commandText(app, checkedOut ? L"telllockedelsewhere" : L"asklock"));
}

void guardAskLock(AppContext& app, AcApDocument* document) {
  const CString path = textOf(document->fileName());
  if (path.empty()) return;
  const CString question = formatText(
      loadMessage(64,
                  "You are trying to modify this drawing without having it checked out in "
                  "Tessaro.\nDo you want to check out the file '%s' now?"),
      {path});
  if (appMessageBox(question.c_str(), MB_YESNO | MB_ICONQUESTION) != IDYES) return;
  acdbSetDbmod(document->database(), 0);
  const CString escape = L"\x1B";
  sendToCommandLine(document, escape + commandText(app, L"locksilent"));
}

void guardTellLockedElsewhere(AppContext&, AcApDocument* document) {
  const CString path = textOf(document->fileName());
  if (path.empty()) return;
  const CString text = formatText(
      loadMessage(65,
                  "The drawing '%s' is checked out somewhere else.\nYou will not be able to save "
                  "this file after making changes."),
      {path});
  appMessageBox(text.c_str(), MB_ICONEXCLAMATION);
}

}  // namespace tessaro
