#pragma once

#include <windows.h>

namespace wb {

/// Enters the client's classes for the current user (HKEY_CURRENT_USER\Software\Classes\CLSID).
/// Where COM doesn't look at the user's own classes, as in Wine before it merged them into
/// HKEY_CLASSES_ROOT, they are entered for the machine as well.
HRESULT enterClasses();

/// Takes the classes out again, as far as they are those of this file; they may be missing.
HRESULT removeClasses();

}  // namespace wb
