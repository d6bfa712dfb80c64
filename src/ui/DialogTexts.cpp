#include "ui/DialogTexts.h"

namespace tessaro {

void setControlText(HWND dialog, const ControlText& text) {
  SetDlgItemTextW(dialog, text.control, loadMessage(text.message));
}

void setButtonTexts(HWND dialog) {
  setControlText(dialog, {IDOK, messages::okButton});
  if (GetDlgItem(dialog, IDCANCEL)) setControlText(dialog, {IDCANCEL, messages::cancelButton});
}

}  // namespace tessaro
