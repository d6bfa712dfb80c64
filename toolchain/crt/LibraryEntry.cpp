// What Windows calls in a library. As with Microsoft's run-time library, `DllMain` hears of the end
// before the destructors run, also when it is the process that ends.

#include <windows.h>

#include "Startup.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* reserved);

extern "C" BOOL WINAPI _DllMainCRTStartup(HINSTANCE instance, DWORD reason, void* reserved) {
  if (reason == DLL_PROCESS_ATTACH) {
    if (!crt::initialize()) return FALSE;
    if (DllMain(instance, reason, reserved)) return TRUE;
    crt::runAtExit();
    return FALSE;
  }
  const BOOL result = DllMain(instance, reason, reserved);
  if (reason == DLL_PROCESS_DETACH) crt::runAtExit();
  return result;
}
