#pragma once

#include <windows.h>

#include "foundation/CString.h"

namespace tessaro {

/// @return the full path of the module's own file (GetModuleFileNameW, up to MAX_PATH characters),
/// empty on failure
CString moduleFilePath(HINSTANCE module);

/// @return the name of the module's own file, without folder and extension
CString moduleBaseName(HINSTANCE module);

}  // namespace tessaro
