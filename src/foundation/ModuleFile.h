#pragma once

#include <windows.h>

#include "foundation/CString.h"

namespace tessaro {

/// The full path of the module's own file (GetModuleFileNameW, up to MAX_PATH characters), empty if
/// Windows doesn't tell it.
CString moduleFilePath(HINSTANCE module);

/// The name of the module's own file, without folder and extension.
CString moduleBaseName(HINSTANCE module);

}  // namespace tessaro
