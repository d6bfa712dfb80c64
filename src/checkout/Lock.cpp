#include "checkout/Lock.h"

#include <acdocman.h>

#include "foundation/AppContext.h"
#include "foundation/AppMessageBox.h"
#include "foundation/FormatText.h"
#include "foundation/HostExtras.h"
#include "vault/CheckedCall.h"
#include "vault/CurrentDrawing.h"
#include "vault/ErrorReport.h"
#include "vault/MessageStrings.h"
#include "vault/OpenVaultFile.h"

namespace tessaro {

namespace {

bool userAgrees(const _bstr_t& fileName, bool modified) {
  const _bstr_t question =
      modified ? loadMessage(63,
                             "The file '%s' has been modified since opened. If you check out the "
                             "file now any changes you have made will be lost. Do you want to "
                             "continue?")
               : loadMessage(62, "Are you sure you want to check out the file '%s'?");
  const CString text = formatText(question, {fileName});
  return appMessageBox(text.c_str(), MB_YESNO | MB_ICONQUESTION) == IDYES;
}

/// Opens a drawing when the command ends, also by an error: the user gets the drawing back in any
/// case, whether or not the check-out succeeded.
class OpenAgain {
 public:
  explicit OpenAgain(const CString& path) : path(path) {}
  OpenAgain(const OpenAgain&) = delete;
  OpenAgain& operator=(const OpenAgain&) = delete;
  ~OpenAgain() { acDocManagerPtr()->appContextOpenDocument(path.c_str()); }

 private:
  const CString& path;
};

}  // namespace

void lock(AppContext& app, bool silent) {
  const CurrentDrawing drawing = requireCurrentDrawing();
  if (!drawing) return;
  // The document is on its way out by the time that the path is needed again.
  const CString path = textOf(drawing.document->fileName());

  VaultClientPtr client;
  VaultFolderPtr folder;
  VaultFilePtr file;
  if (!openVaultFile(app, path, client, folder, file, false)) return;
  if (isCheckedOut(file)) return;
  const bool modified = isCurrentDrawingModified();
  if (!silent && !userAgrees(nameOf(file), modified)) return;
  if (modified) {
    // Otherwise the closing would ask whether to save what the user has just given up.
    acdbSetDbmod(drawing.database, 0);
  }
  acDocManagerPtr()->sendStringToExecute(drawing.document, L"_CLOSE ", true, false, true);
  const OpenAgain drawingBack(path);
  try {
    checkOut(app, file, folder);
  } catch (const _com_error& error) {
    reportComErrorClient(app, client, error, loadMessage(10, "Error checking out file."));
  }
}

}  // namespace tessaro
