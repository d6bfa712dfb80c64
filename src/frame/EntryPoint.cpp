// What the host and Windows call in the module, and the module's static objects.
#include <windows.h>

#include <objbase.h>
#include <rxdefs.h>

#include "foundation/Border.h"
#include "frame/TessaroAcadApp.h"
#include "vault/MessageStrings.h"

namespace tessaro {

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
    if (entered) CoUninitialize();
  }

  /// COM ends with the process, and mustn't be left any more then.
  void processEnds() { entered = false; }

 private:
  bool entered;
};

// In this order, so that they go the other way round: the application object lets the vault client
// go at the very end, on the strength of the COM that the host has on its main thread.
TessaroAcadApp application;
ProcessApartment processApartment;

}  // namespace

}  // namespace tessaro

/// The host's way into the module.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
  return tessaro::atBorder(AcRx::kRetOK,
                           [&] { return tessaro::ArxMfcApp::current()->dispatch(msg, pkt); });
}

/// Windows' own word that the library comes and goes: after the static objects' making and ahead of
/// their destruction.
/// @param processEnds not null at the end of a process that hasn't unloaded the library
BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* processEnds) {
  if (reason == DLL_PROCESS_ATTACH) {
    tessaro::application.moduleInstance = instance;
  } else if (reason == DLL_PROCESS_DETACH) {
    tessaro::application.moduleInstance = nullptr;
    if (processEnds != nullptr) {
      tessaro::application.processEnds();
      tessaro::processApartment.processEnds();
    }
  }
  return TRUE;
}
