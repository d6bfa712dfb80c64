// The functions that the host and Windows call, and the module's static objects.
#include <windows.h>

#include <objbase.h>
#include <rxdefs.h>

#include "foundation/Border.h"
#include "frame/TessaroAcadApp.h"
#include "vault/MessageStrings.h"

namespace tessaro {

namespace {

/// Initializes COM on the thread that loads the module, until the module is unloaded.
class ProcessApartment {
 public:
  ProcessApartment() : entered(SUCCEEDED(CoInitialize(nullptr))) {}
  ProcessApartment(const ProcessApartment&) = delete;
  ProcessApartment& operator=(const ProcessApartment&) = delete;
  // The text service is released first: CoUninitialize may unload its code.
  ~ProcessApartment() {
    releaseTextService();
    if (entered) CoUninitialize();
  }

  /// Don't uninitialize COM: it has ended with the process.
  void processEnds() { entered = false; }

 private:
  bool entered;
};

// They are destroyed in the reverse order. The application object releases the vault client last,
// when COM is initialized on the host's main thread only by the host.
TessaroAcadApp application;
ProcessApartment processApartment;

}  // namespace

}  // namespace tessaro

/// The host's entry point.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
  return tessaro::atBorder(AcRx::kRetOK,
                           [&] { return tessaro::ArxMfcApp::current()->dispatch(msg, pkt); });
}

/// The library's entry point, called by Windows after the construction of the static objects and
/// before their destruction.
/// @param processEnds not null if the library is unloaded by the end of the process
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
