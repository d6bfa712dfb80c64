#include "tracking/DocManagerReactor.h"

#include "tracking/DocumentEvents.h"

void DocManagerReactor::documentToBeDestroyed(AcApDocument* document) {
  events->documentToBeDestroyed(document);
}

void DocManagerReactor::documentDestroyed(const ACHAR* fileName) {
  events->documentDestroyed(fileName);
}

void DocManagerReactor::documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode,
                                                AcAp::DocLockMode, AcAp::DocLockMode,
                                                const ACHAR*) {
  if (document == acDocManagerPtr()->curDocument()) editGuardCheck(document);
}

void DocManagerReactor::documentActivated(AcApDocument* document) {
  events->documentActivated(document);
}

void DocManagerReactor::editGuardCheck(AcApDocument* document) { events->editGuardCheck(document); }
