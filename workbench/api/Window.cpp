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

using wb::HostCall;

namespace {

/// The progress meter in the status bar.
struct Meter {
  wb::Ticket ticket = 0;
  int min = 0, max = 0;
};

Meter& meter() { return wb::sessionPart<Meter>(); }

}  // namespace

extern "C" HWND adsw_acadMainWnd() {
  return HostCall(THIS_FUNCTION).run<HWND>(nullptr, [] {
    return wb::Host::instance().mainWindow();
  });
}

Adesk::Boolean acedAddObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext,
                                        const void* /*appId*/) {
  return HostCall(THIS_FUNCTION).run<Adesk::Boolean>(Adesk::kFalse, [&] {
    return wb::Host::instance().menus().add(pClass, pContext);
  });
}

Adesk::Boolean acedRemoveObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext) {
  return HostCall(THIS_FUNCTION).run<Adesk::Boolean>(Adesk::kFalse, [&] {
    return wb::Host::instance().menus().remove(pClass, pContext);
  });
}

int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max) {
  return HostCall(THIS_FUNCTION).run(-1, [&] {
    if (!label || max < min) return -1;
    if (meter().ticket) wb::releaseResource(meter().ticket);
    meter() = {wb::trackResource(L"progress meter", label), min, max};
    wb::report(wb::Event::window, L"progress " + wb::quoted(label) + L" " + std::to_wstring(min) +
                                      L".." + std::to_wstring(max));
    return 0;
  });
}

int acedSetStatusBarProgressMeterPos(int position) {
  return HostCall(THIS_FUNCTION).run(-1, [&] {
    if (!meter().ticket) return -1;
    wb::report(wb::Event::window,
               L"progress at " + std::to_wstring(std::clamp(position, meter().min, meter().max)));
    return 0;
  });
}

void acedRestoreStatusBar() {
  HostCall(THIS_FUNCTION).run([] {
    if (!meter().ticket) return;
    wb::releaseResource(meter().ticket);
    meter() = {};
    wb::report(wb::Event::window, L"progress ends");
  });
}
