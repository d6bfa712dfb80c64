#pragma once

#include <windows.h>

namespace tessaro {

/// A control's text: its number in the message table and its English wording.
struct ControlText {
  int control;
  int message;
  const char* text;
};

/// Sets the texts of controls from the message table.
template <size_t count>
void setControlTexts(HWND dialog, const ControlText (&texts)[count]);

/// Sets the texts of the buttons OK and Cancel, as far as the dialog has them.
void setButtonTexts(HWND dialog);

/// Whether a command from the button `id` ends one of the module's dialogs (IDOK to IDNO).
inline bool closesDialog(WORD id) { return id >= IDOK && id <= IDNO; }

void setControlText(HWND dialog, const ControlText& text);

template <size_t count>
void setControlTexts(HWND dialog, const ControlText (&texts)[count]) {
  for (const ControlText& text : texts) setControlText(dialog, text);
}

}  // namespace tessaro
