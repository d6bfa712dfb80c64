#include "tracking/SelectFile.h"

#include <windows.h>

#include <comdef.h>

#include "foundation/AddinSettings.h"
#include "foundation/AppContext.h"
#include "foundation/AppMessageBox.h"
#include "foundation/Border.h"
#include "foundation/FlagScope.h"
#include "vault/CheckedCall.h"
#include "vault/ErrorReport.h"
#include "vault/Messages.h"
#include "vault/OpenVaultFile.h"

namespace tessaro {

namespace {

/// The flags of the host's own open dialog.
constexpr int openDialogFlags = 0x41102;

/// Whether the callback is inside the host's selection.
bool selecting = false;

/// Whether the setting asks for the offer. A settings key that can't be created is reported in a
/// box.
bool offerWanted() {
  Registry key;
  if (!openAddinSettings(key)) {
    appMessageBox(loadMessage(messages::settingsKeyFailed), MB_ICONINFORMATION);
    return false;
  }
  return addinSettingOrDefault(key, addinSettings::autolock) != 0;
}

void offerCheckOut(AppContext& app, const CString& path) {
  OpenedVaultFile opened;
  if (!openVaultFile(app, path, opened, false)) return;
  try {
    if (isCheckedOut(opened.file)) return;
  } catch (const _com_error& error) {
    reportComErrorClient(app, opened.client, error, loadMessage(messages::checkOutStateFailed));
    return;
  }
  if (!askYesNo(loadMessage(messages::askCheckOutBeforeOpen))) return;
  try {
    checkOut(app, opened.file, opened.folder);
  } catch (const _com_error& error) {
    reportComErrorClient(app, opened.client, error, loadMessage(messages::checkOutFailed));
  }
}

}  // namespace

Acad::ErrorStatus TessaroSelectFile(short* userCancel, ACHAR*& chosenPath, void* hwnd,
                                    const int nFlags, const ACHAR* prompt, const ACHAR* dir,
                                    const ACHAR* name, const ACHAR* type, int* pnChoice,
                                    bool* pbReadOnly, const ACHAR* pszWSTags, void* pReserved) {
  if (selecting || nFlags != openDialogFlags) return Acad::eNotHandled;

  Acad::ErrorStatus status;
  {
    // The services object calls its callbacks first, so this call re-enters once.
    const FlagScope scope(selecting);
    status = acdbHostApplicationServices()->selectFile(userCancel, chosenPath, hwnd, nFlags, prompt,
                                                       dir, name, type, pnChoice, pbReadOnly,
                                                       pszWSTags, pReserved);
  }
  if (!chosenPath || status != Acad::eOk || *userCancel != 0) return status;
  // The selected file is opened even if the offer fails.
  atBorder([&] {
    if (offerWanted()) offerCheckOut(*currentApp(), chosenPath);
  });
  return Acad::eOk;
}

}  // namespace tessaro
