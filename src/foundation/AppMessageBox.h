#pragma once

#include <windows.h>

#include "foundation/CString.h"

namespace tessaro {

/// Shows a box of the module (MessageBoxW), owned by the host's main window, under the suite's
/// title; without an application object it has no owner and an empty title. Nothing is raised: a
/// title that there is no memory for is "Tessaro".
/// @param flags the buttons and the icon, MB_...
/// @return the user's answer, ID...
int appMessageBox(const wchar_t* text, UINT flags) noexcept;

/// The title of the suite: the default value of the suite's key for the machine, else that of the
/// user's, else `fallback`. A value counts if it is a REG_SZ of at most 1024 bytes and not empty.
CString productTitle(const wchar_t* fallback);

}  // namespace tessaro
