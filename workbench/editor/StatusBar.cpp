#include <AdAChar.h>

#include <algorithm>
#include <string>

#include "core/Accounts.h"
#include "core/Transcript.h"

// The editor exports these three without declaring them in the headers that an application gets.
int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max);
int acedSetStatusBarProgressMeterPos(int position);
void acedRestoreStatusBar();

namespace {

struct Meter {
  wb::Ticket ticket = 0;
  int min = 0, max = 0;
};

Meter& meter() {
  static Meter one;
  return one;
}

}  // namespace

int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max) {
  if (!label || max < min) return -1;
  if (meter().ticket) wb::giveBack(meter().ticket);
  meter() = {wb::handOut(L"progress meter", label), min, max};
  wb::tell(wb::Event::window, L"progress " + wb::quoted(label) + L" " + std::to_wstring(min) +
                                  L".." + std::to_wstring(max));
  return 0;
}

int acedSetStatusBarProgressMeterPos(int position) {
  if (!meter().ticket) return -1;
  wb::tell(wb::Event::window,
           L"progress at " + std::to_wstring(std::clamp(position, meter().min, meter().max)));
  return 0;
}

void acedRestoreStatusBar() {
  if (!meter().ticket) return;
  wb::giveBack(meter().ticket);
  meter() = {};
  wb::tell(wb::Event::window, L"progress ends");
}
