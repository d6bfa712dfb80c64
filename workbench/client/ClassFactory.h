#pragma once

#include <windows.h>

namespace wb {

/// The factory of one of the client's classes, with a reference for the caller.
/// @return CLASS_E_CLASSNOTAVAILABLE for a class of somebody else's
HRESULT classFactory(REFCLSID classId, REFIID iid, void** out);

/// The locks that callers put on the server (IClassFactory::LockServer).
bool isServerLocked();

}  // namespace wb
