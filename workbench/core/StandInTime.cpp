#include "core/StandInTime.h"

#include <intrin.h>

#include <utility>

namespace wb {

namespace {

using Ticks = unsigned long long;

bool counting = false;
int depth = 0;
Ticks begun = 0;
Ticks sum = 0;
Ticks entered = 0;

}  // namespace

void StandInTime::count(bool on) {
  counting = on;
  depth = 0;
  sum = entered = 0;
}

unsigned long long StandInTime::ticks() { return sum; }

unsigned long long StandInTime::entries() { return entered; }

void StandInTime::enter() {
  if (!counting || depth++ != 0) return;
  ++entered;
  begun = __rdtsc();
}

void StandInTime::leave() {
  if (counting && --depth == 0) sum += __rdtsc() - begun;
}

InModule::InModule() : depth(std::exchange(wb::depth, 0)) {
  if (depth > 0) sum += __rdtsc() - begun;
}

InModule::~InModule() {
  wb::depth = depth;
  if (depth > 0) begun = __rdtsc();
}

}  // namespace wb
