#pragma once

#include <windows.h>

namespace wb {

/// Enters the client's classes for the machine (HKEY_LOCAL_MACHINE\Software\Classes\CLSID), or for
/// the current user where access to the machine's is denied.
HRESULT enterClasses();

/// Takes the classes out again, as far as they are those of this file; they may be missing.
HRESULT removeClasses();

}  // namespace wb
