#include <axlock.h>

#include "core/Faults.h"
#include "core/StandInTime.h"
#include "core/Accounts.h"
#include "host/DocumentManager.h"
#include "host/Host.h"

AcAxDocLock::AcAxDocLock(AcDbDatabase* pDb, DocLockType)
    : status(Acad::eNoDocument), database(pDb), ticket(0) {
  const wb::InStandIn inside;
  wb::DocumentManager& manager = wb::Host::instance().documents();
  wb::Document* document = manager.find(pDb);
  if (!document) return;
  if (FAILED(wb::takeFault(L"host.AcAxDocLock")) || !manager.lock(document, AcAp::kWrite, {})) {
    status = Acad::eLockViolation;
    return;
  }
  status = Acad::eOk;
  ticket = wb::handOut(L"document lock", document->title());
}

AcAxDocLock::~AcAxDocLock() {
  const wb::InStandIn inside;
  if (status != Acad::eOk) return;
  wb::giveBack(ticket);
  wb::DocumentManager& manager = wb::Host::instance().documents();
  // The document may have been closed under its lock.
  if (wb::Document* document = manager.find(database)) manager.unlock(document, {});
}

Acad::ErrorStatus AcAxDocLock::lockStatus() const { return status; }
