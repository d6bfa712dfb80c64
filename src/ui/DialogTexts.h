#pragma once

#include <windows.h>

#include "vault/Messages.h"

namespace tessaro {

/// A control and its text.
struct ControlText {
  int control;
  Message message;
};

/// Sets the text of a control.
void setControlText(HWND dialog, const ControlText& text);

/// Sets the texts of controls.
template <size_t count>
void setControlTexts(HWND dialog, const ControlText (&texts)[count]) {
  for (const ControlText& text : texts) setControlText(dialog, text);
}

/// Sets the texts of the buttons OK and Cancel, if the dialog has them.
void setButtonTexts(HWND dialog);

/// Whether a command of the control `id` closes the module's dialogs (IDOK to IDNO).
inline bool closesDialog(WORD id) { return id >= IDOK && id <= IDNO; }

}  // namespace tessaro
