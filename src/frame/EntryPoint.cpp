// What the host and Windows call in the module, and the module's static objects.
#include <windows.h>

#include <objbase.h>
#include <rxdefs.h>

#include "frame/TessaroAcadApp.h"
#include "vault/MessageStrings.h"

namespace {

/// COM on the thread that loads the module, for as long as the module is loaded.
class ProcessApartment {
 public:
  ProcessApartment() : entered(SUCCEEDED(CoInitialize(nullptr))) {}
  ProcessApartment(const ProcessApartment&) = delete;
  ProcessApartment& operator=(const ProcessApartment&) = delete;
  // The text service goes first: once COM is left for good its code may be gone from the process.
  ~ProcessApartment() {
    releaseTextService();
    if (entered) {
      CoUninitialize();
    }
  }

 private:
  const bool entered;
};

// In this order, so that they go the other way round: the application object lets the vault client
// go at the very end, on the strength of the COM that the host has on its main thread.
TessaroAcadApp application;
ProcessApartment processApartment;

}  // namespace

/// The host's way into the module.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
  return ArxMfcApp::current()->dispatch(msg, pkt);
}

/// Windows' own word that the library comes and goes. It comes after the static objects' making.
BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) {
    application.moduleInstance = instance;
  } else if (reason == DLL_PROCESS_DETACH) {
    application.moduleInstance = nullptr;
  }
  return TRUE;
}
