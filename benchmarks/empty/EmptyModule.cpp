// The least that the host takes for an application: what loading anything at all costs.
#include <windows.h>

#include <rxdefs.h>
#include <rxdlinkr.h>
#include <rxobject.h>

extern "C" {

__declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* pkt) {
  if (message == AcRx::kInitAppMsg) {
    static_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))
        ->unlockApplication(pkt);
  }
  return AcRx::kRetOK;
}

__declspec(dllexport) int acrxGetApiVersion() { return 17 << 16; }
}
