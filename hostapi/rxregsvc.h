#pragma once

#include "rxdlinkr.h"

/// Enters a service under `name` into "ServiceDictionary", where whoever removes it deletes it.
void* acrxRegisterService(const ACHAR* name);

/// Takes an application out of the host's load record; `eKeyNotFound` if it isn't there.
AcadApp::ErrorStatus acrxUnregisterApp(const ACHAR* name, bool bDwgU = false);
