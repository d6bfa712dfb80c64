#include <aced.h>
#include <rxclass.h>

#include <algorithm>
#include <string>

#include "core/Accounts.h"
#include "core/SessionState.h"
#include "core/Transcript.h"
#include "editor/Host.h"
#include "foundation/HostExtras.h"
#include "gate/HostCall.h"

using namespace wb;

namespace {

/// The progress meter in the status bar.
struct Meter {
  Ticket ticket = 0;
  int min = 0, max = 0;
};

}  // namespace

static Meter& meter() { return sessionPart<Meter>(); }

extern "C" HWND adsw_acadMainWnd() {
  return HostCall(THIS_FUNCTION).run<HWND>(nullptr, [] { return Host::instance().mainWindow(); });
}

Adesk::Boolean acedAddObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext,
                                        const void* /*appId*/) {
  return HostCall(THIS_FUNCTION).run<Adesk::Boolean>(Adesk::kFalse, [&] {
    return Host::instance().menus().add(pClass, pContext);
  });
}

Adesk::Boolean acedRemoveObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext) {
  return HostCall(THIS_FUNCTION).run<Adesk::Boolean>(Adesk::kFalse, [&] {
    return Host::instance().menus().remove(pClass, pContext);
  });
}

int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max) {
  return HostCall(THIS_FUNCTION).run(-1, [&] {
    if (!label || max < min) return -1;
    if (meter().ticket) releaseResource(meter().ticket);
    meter() = {trackResource(L"progress meter", label), min, max};
    report(Event::window, L"progress " + quoted(label) + L" " + std::to_wstring(min) + L".." +
                              std::to_wstring(max));
    return 0;
  });
}

int acedSetStatusBarProgressMeterPos(int position) {
  return HostCall(THIS_FUNCTION).run(-1, [&] {
    if (!meter().ticket) return -1;
    report(Event::window,
           L"progress at " + std::to_wstring(std::clamp(position, meter().min, meter().max)));
    return 0;
  });
}

void acedRestoreStatusBar() {
  HostCall(THIS_FUNCTION).run([] {
    if (!meter().ticket) return;
    releaseResource(meter().ticket);
    meter() = {};
    report(Event::window, L"progress ends");
  });
}
