#include "vault/DrawingVaultContext.h"

#include <acdocman.h>

#include "foundation/AppMessageBox.h"
#include "foundation/FormatText.h"
#include "vault/ErrorReport.h"
#include "vault/Messages.h"
#include "vault/RequireCurrentDrawing.h"
#include "vault/VaultSteps.h"

namespace tessaro {

namespace {

/// Whether the client has the version or a newer one. An older one is reported in a box.
bool isNewEnough(const VaultClientLegacyPtr& client, long requiredMajor, long requiredMinor) {
  long major = 0;
  long minor = 0;
  check(client->clientVersion(&major, &minor), *client);
  if (major > requiredMajor || (major == requiredMajor && minor >= requiredMinor)) return true;
  const CString text =
      formatText(loadMessage(messages::clientTooOld), {requiredMajor, requiredMinor, major, minor});
  appMessageBox(text.c_str(), MB_ICONINFORMATION);
  return false;
}

HRESULT reportNotInVault(HRESULT result) {
  appMessageBox(loadMessage(messages::drawingNotInVault), MB_ICONINFORMATION);
  return result;
}

HRESULT openContext(const AppContext& app, DrawingVaultContext& context, long requiredMajor,
                    long requiredMinor) {
  VaultClientLegacyPtr& client = context.client;
  const HRESULT created = createClientOrReport(client);
  if (FAILED(created)) return created;
  if (requiredMajor != 0 && !isNewEnough(client, requiredMajor, requiredMinor)) {
    return E_QVT_VERSION_MISMATCH;
  }
  _bstr_t vaultName;
  const HRESULT named = findVaultName(client, context.path, vaultName);
  if (named == E_QVT_KEY_NOT_FOUND) return reportNotInVault(named);
  check(named, *client);
  if (isVaultOffline(vaultName)) return E_QVT_NOT_LOGGED_IN;
  check(logIn(app, client, vaultName), *client);
  const HRESULT found = findFile(client, context.path, context.folder, context.file);
  if (found == E_QVT_FILE_NOT_FOUND) return reportNotInVault(found);
  check(found, *client);
  return S_OK;
}

}  // namespace

HRESULT OpenVaultContext(AppContext& app, DrawingVaultContext& context, long requiredMajor,
                         long requiredMinor) {
  const CurrentDrawing drawing = requireCurrentDrawing();
  if (!drawing) return E_FAIL;
  context.database = drawing.database;
  context.path = textOf(drawing.document->fileName());
  try {
    return openContext(app, context, requiredMajor, requiredMinor);
  } catch (const _com_error& error) {
    return reportComError(app, context.client, error, loadMessage(messages::borderUpdateFailed));
  }
}

}  // namespace tessaro
