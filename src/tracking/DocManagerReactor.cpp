#include "tracking/DocManagerReactor.h"

#include "foundation/Border.h"
#include "tracking/DocumentEvents.h"

namespace tessaro {

void DocManagerReactor::documentToBeDestroyed(AcApDocument* document) {
  atBorder([&] { events->documentToBeDestroyed(document); });
}

void DocManagerReactor::documentDestroyed(const ACHAR* fileName) {
  atBorder([&] { events->documentDestroyed(fileName); });
}

void DocManagerReactor::documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode,
                                                AcAp::DocLockMode, AcAp::DocLockMode currentMode,
                                                const ACHAR*) {
  // During a command its prompts would read the warning's command as their input.
  const bool isFree = currentMode == AcAp::kNone || currentMode == AcAp::kNotLocked;
  if (isFree && document == acDocManagerPtr()->curDocument()) editGuardCheck(document);
}

void DocManagerReactor::documentActivated(AcApDocument* document) {
  atBorder([&] { events->documentActivated(document); });
}

void DocManagerReactor::editGuardCheck(AcApDocument* document) {
  asComErrors([&] { events->editGuardCheck(document); });
}

}  // namespace tessaro
