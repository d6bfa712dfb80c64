#include "xref/ProgressMeter.h"

#include "foundation/HostExtras.h"

namespace tessaro {

ProgressMeter::~ProgressMeter() {
  if (shown) acedRestoreStatusBar();
}

void ProgressMeter::next(const CString& label) {
  // The host labels a meter only when it makes it, so each file gets a meter of its own.
  if (shown) acedRestoreStatusBar();
  shown = acedSetStatusBarProgressMeter(label.c_str(), 0, steps) == 0;
  if (shown) acedSetStatusBarProgressMeterPos(done);
  ++done;
}

}  // namespace tessaro
