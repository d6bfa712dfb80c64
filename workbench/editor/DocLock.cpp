#include <axlock.h>

#include "core/HandleLedger.h"
#include "core/StandInTime.h"
#include "editor/DocumentManager.h"
#include "editor/Host.h"
#include "faults/Faults.h"

namespace {

wb::HandleLedger<const AcAxDocLock*>& locks() {
  static wb::HandleLedger<const AcAxDocLock*> ledger(L"document lock");
  return ledger;
}

}  // namespace

AcAxDocLock::AcAxDocLock(AcDbDatabase* pDb, DocLockType)
    : m_lockStatus(Acad::eNoDocument),
      m_pDocToUnlock(nullptr),
      m_pCurDocToRestore(nullptr),
      m_restoreActivation(false) {
  const wb::InStandIn inside;
  wb::DocumentManager& manager = wb::Host::instance().documents();
  wb::Document* document = manager.find(pDb);
  if (!document) return;
  if (FAILED(wb::takeFault(L"host.AcAxDocLock")) || !manager.lock(document, AcAp::kWrite, {})) {
    m_lockStatus = Acad::eLockViolation;
    return;
  }
  m_lockStatus = Acad::eOk;
  m_pDocToUnlock = document;
  locks().opened(this, document->title());
}

AcAxDocLock::~AcAxDocLock() {
  const wb::InStandIn inside;
  if (m_lockStatus != Acad::eOk) return;
  locks().closed(this);
  wb::DocumentManager& manager = wb::Host::instance().documents();
  auto* document = static_cast<wb::Document*>(m_pDocToUnlock);
  // The document may have been closed under its lock.
  if (manager.isOpen(document)) manager.unlock(document, {});
}

Acad::ErrorStatus AcAxDocLock::lockStatus() const { return m_lockStatus; }
