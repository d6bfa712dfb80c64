#include "ui/DialogTexts.h"

#include "vault/MessageStrings.h"

namespace tessaro {

void setControlText(HWND dialog, const ControlText& text) {
  SetDlgItemTextW(dialog, text.control, loadMessage(text.message, text.text));
}

void setButtonTexts(HWND dialog) {
  setControlText(dialog, {IDOK, 180, "OK"});
  if (GetDlgItem(dialog, IDCANCEL)) setControlText(dialog, {IDCANCEL, 181, "Cancel"});
}

}  // namespace tessaro
