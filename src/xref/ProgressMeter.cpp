#include "xref/ProgressMeter.h"

#include "foundation/HostExtras.h"

namespace tessaro {

ProgressMeter::~ProgressMeter() {
  if (shown) acedRestoreStatusBar();
}

void ProgressMeter::next(const CString& label) {
  // The host sets a meter's label only at its creation, so each step has a new meter.
  if (shown) acedRestoreStatusBar();
  shown = acedSetStatusBarProgressMeter(label.c_str(), 0, steps) == 0;
  if (shown) acedSetStatusBarProgressMeterPos(done);
  ++done;
}

}  // namespace tessaro
