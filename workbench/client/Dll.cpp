#include <windows.h>

#include "client/ClassFactory.h"
#include "client/LiveObject.h"
#include "client/Registration.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** out) {
  return wb::classFactory(classId, iid, out);
}

STDAPI DllCanUnloadNow() { return wb::LiveObject::any() || wb::isServerLocked() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return wb::enterClasses(); }

STDAPI DllUnregisterServer() { return wb::removeClasses(); }
