#include "checkout/Lock.h"

#include <acdocman.h>

#include "foundation/AppContext.h"
#include "foundation/AppMessageBox.h"
#include "foundation/FormatText.h"
#include "foundation/HostExtras.h"
#include "vault/CheckedCall.h"
#include "vault/ErrorReport.h"
#include "vault/Messages.h"
#include "vault/OpenVaultFile.h"
#include "vault/RequireCurrentDrawing.h"

namespace tessaro {

namespace {

bool userAgrees(const _bstr_t& fileName, bool modified) {
  const _bstr_t question =
      loadMessage(modified ? messages::askCheckOutModified : messages::askCheckOut);
  return askYesNo(formatText(question, {fileName}).c_str());
}

/// Opens a drawing at the end of a scope, also after an exception and a failed check-out.
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
  // A copy: the document is closing when the path is needed again.
  const CString path = textOf(drawing.document->fileName());

  OpenedVaultFile opened;
  if (!openVaultFile(app, path, opened, false)) return;
  if (isCheckedOut(opened.file)) return;
  const bool modified = isCurrentDrawingModified();
  if (!silent && !userAgrees(nameOf(opened.file), modified)) return;
  if (modified) {
    // Without this the closing would ask whether to save the changes.
    acdbSetDbmod(drawing.database, 0);
  }
  acDocManagerPtr()->sendStringToExecute(drawing.document, L"_CLOSE ", true, false, true);
  const OpenAgain reopened(path);
  try {
    checkOut(app, opened.file, opened.folder);
  } catch (const _com_error& error) {
    reportComErrorClient(app, opened.client, error, loadMessage(messages::checkOutFailed));
  }
}

}  // namespace tessaro
