#include "checkout/Unlock.h"

#include <acdocman.h>
#include <acedads.h>
#include <adscodes.h>

#include "checkout/PendingCheckIn.h"
#include "foundation/AppContext.h"
#include "foundation/AppMessageBox.h"
#include "foundation/FormatText.h"
#include "vault/CheckedCall.h"
#include "vault/CurrentDrawing.h"
#include "vault/ItemIdList.h"
#include "vault/MessageStrings.h"
#include "vault/OpenVaultFile.h"
#include "vault/RunMenuCmd.h"

namespace tessaro {

namespace {

struct VaultFacts {
  bool isCheckedOut = false;
  _bstr_t name;
};

/// The client can't take in a file while objects on it are held across the question, the saving and
/// the closing, so that they are let go here.
bool readVaultFacts(AppContext& app, const CString& path, VaultFacts& facts) {
  VaultClientPtr client;
  VaultFolderPtr folder;
  VaultFilePtr file;
  if (!openVaultFile(app, path, client, folder, file, false)) return false;
  facts.isCheckedOut = isCheckedOut(file);
  facts.name = nameOf(file);
  return true;
}

bool userAgrees(const _bstr_t& fileName) {
  const CString text = formatText(
      loadMessage(61,
                  "This will save  your changes to the file '%s' and close it before checking in. "
                  "Are you sure you want to continue?"),
      {fileName});
  return appMessageBox(text.c_str(), MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void runCheckInDialog(AppContext& app, const CString& path) {
  VaultClientPtr client;
  VaultFolderPtr folder;
  VaultFilePtr file;
  if (!openVaultFile(app, path, client, folder, file, false)) return;
  const _bstr_t name = nameOf(file);
  RunMenuCmd(shellFolderOf(folder), name, L"Unlock").doModal(app.mainWindow);
}

}  // namespace

void unlock(AppContext& app, PendingCheckIn& note) {
  const CurrentDrawing drawing = requireCurrentDrawing();
  if (!drawing) return;
  VaultFacts facts;
  if (!readVaultFacts(app, textOf(drawing.document->fileName()), facts)) return;
  // Held by whom doesn't matter here: the vault's own verb has the last word on that.
  if (!facts.isCheckedOut) return;
  if (!userAgrees(facts.name)) return;
  // Before the saving and the closing, since the document's end can come as soon as they start.
  note.checkInPath = textOf(drawing.document->fileName());
  note.checkInPending = true;
  // An unchanged drawing isn't saved, so that its file keeps its date.
  if (isCurrentDrawingModified()) acedCommand(RTSTR, "_QSAVE", RTNONE);
  acDocManagerPtr()->closeDocument(drawing.document);
}

void onDocumentDestroyed(AppContext& app, PendingCheckIn& note, const ACHAR* fileName) {
  if (!note.checkInPending) return;
  // Before all else, so that no second event can start a check-in whatever follows.
  note.checkInPending = false;
  if (!equalIgnoringCase(note.checkInPath, textOf(fileName))) {
    appMessageBox(L"File name mismatch when checking in document. Aborting.", MB_ICONINFORMATION);
    return;
  }
  try {
    runCheckInDialog(app, note.checkInPath);
  } catch (const _com_error&) {
    // The drawing stays checked out, and can be checked in from the vault's own folder.
  }
}

}  // namespace tessaro
