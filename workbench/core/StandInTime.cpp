#include "core/StandInTime.h"

#include <intrin.h>

#include "core/SessionState.h"

namespace wb {

namespace {

StandInTime* currentTime() {
  SessionState* const session = SessionState::current();
  return session ? &session->standInTime : nullptr;
}

}  // namespace

void StandInTime::count(bool on) {
  *this = StandInTime();
  counting = on;
}

void StandInTime::enter() {
  if (!counting || depth++ != 0) return;
  ++entered;
  begun = __rdtsc();
}

void StandInTime::leave() {
  if (counting && --depth == 0) sum += __rdtsc() - begun;
}

InStandIn::InStandIn() : time(currentTime()) {
  if (time) time->enter();
}

InStandIn::~InStandIn() {
  if (time) time->leave();
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
