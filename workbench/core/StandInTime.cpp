#include "core/StandInTime.h"

#include <intrin.h>

#include <utility>

#include "core/SessionState.h"

namespace wb {

static StandInTime* currentTime() {
  SessionState* const session = SessionState::current();
  return session ? &session->standInTime : nullptr;
}

void StandInTime::count(bool on) {
  *this = StandInTime();
  counting = on;
}

InStandIn::InStandIn() : time(currentTime()) {
  if (!time || !time->counting || time->depth++ != 0) return;
  ++time->entered;
  time->begun = __rdtsc();
}

InStandIn::~InStandIn() {
  if (time && time->counting && --time->depth == 0) time->sum += __rdtsc() - time->begun;
}

InModule::InModule() : time(currentTime()) {
  if (!time) return;
  depth = std::exchange(time->depth, 0);
  if (depth > 0) time->sum += __rdtsc() - time->begun;
}

InModule::~InModule() {
  if (!time) return;
  time->depth = depth;
  if (depth > 0) time->begun = __rdtsc();
}

}  // namespace wb
