#include "checkout/Unlock.h"

#include <acdocman.h>
#include <acedads.h>
#include <adscodes.h>

#include "checkout/PendingCheckIn.h"
#include "foundation/AppContext.h"
#include "foundation/AppMessageBox.h"
#include "foundation/FormatText.h"
#include "vault/CheckedCall.h"
#include "vault/Messages.h"
#include "vault/OpenVaultFile.h"
#include "vault/RequireCurrentDrawing.h"
#include "vault/RunMenuCmd.h"

namespace tessaro {

namespace {

struct FileFacts {
  bool isCheckedOut = false;
  _bstr_t name;
};

/// Releases the vault's objects on return: the client can't check in a file while they are held.
bool readFileFacts(AppContext& app, const CString& path, FileFacts& facts) {
  OpenedVaultFile opened;
  if (!openVaultFile(app, path, opened, false)) return false;
  facts.isCheckedOut = isCheckedOut(opened.file);
  facts.name = nameOf(opened.file);
  return true;
}

void checkIn(AppContext& app, const CString& path) {
  OpenedVaultFile opened;
  if (!openVaultFile(app, path, opened, false)) return;
  runCheckInDialog(app, opened.folder, nameOf(opened.file));
}

}  // namespace

void unlock(AppContext& app, PendingCheckIn& pending) {
  const CurrentDrawing drawing = requireCurrentDrawing();
  if (!drawing) return;
  FileFacts facts;
  if (!readFileFacts(app, textOf(drawing.document->fileName()), facts)) return;
  // Who has checked it out isn't asked here: the vault's own verb decides that.
  if (!facts.isCheckedOut) return;
  if (!askYesNo(formatText(loadMessage(messages::askCheckIn), {facts.name}).c_str())) return;
  // Set first, since the document may be destroyed during the saving or closing.
  pending.checkInPath = textOf(drawing.document->fileName());
  pending.checkInPending = true;
  // An unchanged drawing isn't saved, so that its file keeps its date.
  if (isCurrentDrawingModified()) acedCommand(RTSTR, "_QSAVE", RTNONE);
  acDocManagerPtr()->closeDocument(drawing.document);
}

void onDocumentDestroyed(AppContext& app, PendingCheckIn& pending, const ACHAR* fileName) {
  if (!pending.checkInPending) return;
  // Cleared first, so that no other event starts a second check-in.
  pending.checkInPending = false;
  if (!equalIgnoringCase(pending.checkInPath, textOf(fileName))) {
    appMessageBox(fixedTexts::checkInFileMismatch, MB_ICONINFORMATION);
    return;
  }
  try {
    checkIn(app, pending.checkInPath);
  } catch (const _com_error&) {
    // The drawing stays checked out; the user can check it in from the vault's folder.
  }
}

}  // namespace tessaro
