#pragma once

#include <windows.h>

#include "foundation/CString.h"

namespace tessaro {

/// Shows a box (MessageBoxW), owned by the host's main window, under the suite's title. Without an
/// application object it has no owner and an empty title. If the title can't be read for lack of
/// memory, it is "Tessaro".
/// @param flags the buttons and the icon, MB_...
/// @return the user's answer, ID...
int appMessageBox(const wchar_t* text, UINT flags) noexcept;

/// Asks a question with the buttons Yes and No.
/// @return whether the answer is Yes
bool askYesNo(const wchar_t* question);

/// Reads the suite's title: the default value of the suite's key, the machine's before the user's.
/// A value is usable if it is a REG_SZ of at most 1024 bytes that isn't empty.
/// @return the title, or `fallback` if there is no usable value
CString productTitle(const wchar_t* fallback);

}  // namespace tessaro
