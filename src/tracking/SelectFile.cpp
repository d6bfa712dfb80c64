#include "tracking/SelectFile.h"

#include <windows.h>

#include <comdef.h>

#include "foundation/AppContext.h"
#include "foundation/AppMessageBox.h"
#include "foundation/Border.h"
#include "foundation/Registry.h"
#include "vault/CheckedCall.h"
#include "vault/ErrorReport.h"
#include "vault/MessageStrings.h"
#include "vault/OpenVaultFile.h"

namespace tessaro {

namespace {

/// What the host's own open dialog passes as its flags.
constexpr int openDialogFlags = 0x41102;

/// True while the callback itself is inside the host's selection.
bool selecting = false;

class SelectingScope {
 public:
  SelectingScope() { selecting = true; }
  ~SelectingScope() { selecting = false; }
};

/// Whether drawings that are opened are to be offered for check-out. Creates the settings key.
bool offerWanted() {
  Registry settings;
  if (!settings.open(HKEY_CURRENT_USER, addinSettingsKey, KEY_READ | KEY_WRITE, true)) {
    appMessageBox(loadMessage(16, "Failed to open registry key."), MB_ICONINFORMATION);
    return false;
  }
  DWORD autolock = 0;
  return readSetting(settings, L"Autolock", autolock) && autolock != 0;
}

void offerCheckOut(AppContext& app, const CString& path) {
  VaultClientPtr client;
  VaultFolderPtr folder;
  VaultFilePtr file;
  if (!openVaultFile(app, path, client, folder, file, false)) return;
  try {
    if (isCheckedOut(file)) return;
  } catch (const _com_error& error) {
    reportComErrorClient(app, client, error, loadMessage(12, "Error getting check out data."));
    return;
  }
  const _bstr_t question = loadMessage(
      56, "This file is not checked out in Tessaro. Do you want to check out it before opening?");
  if (appMessageBox(question, MB_YESNO | MB_ICONQUESTION) != IDYES) return;
  try {
    checkOut(app, file, folder);
  } catch (const _com_error& error) {
    reportComErrorClient(app, client, error, loadMessage(10, "Error checking out file."));
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
    // The services object asks its callbacks first, so this call comes back here once.
    const SelectingScope scope;
    status = acdbHostApplicationServices()->selectFile(userCancel, chosenPath, hwnd, nFlags, prompt,
                                                       dir, name, type, pnChoice, pbReadOnly,
                                                       pszWSTags, pReserved);
  }
  if (!chosenPath || status != Acad::eOk || *userCancel != 0) return status;
  // The pick stands, whatever becomes of the offer.
  atBorder([&] {
    if (offerWanted()) offerCheckOut(*currentApp(), chosenPath);
  });
  return Acad::eOk;
}

}  // namespace tessaro
