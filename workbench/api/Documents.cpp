#include <acdocman.h>
#include <axlock.h>

#include "core/Accounts.h"
#include "core/SessionState.h"
#include "database/Drawing.h"
#include "editor/Host.h"
#include "foundation/HostExtras.h"
#include "gate/HostCall.h"

using wb::HostCall;

namespace {

struct DocumentLocks {
  wb::HandleLedger<const AcAxDocLock*> held{L"document lock"};
};

wb::HandleLedger<const AcAxDocLock*>& locks() { return wb::sessionPart<DocumentLocks>().held; }

}  // namespace

AcApDocManager* acDocManagerPtr() {
  const HostCall call(THIS_FUNCTION);
  return &wb::Host::instance().documents();
}

AcAxDocLock::AcAxDocLock(AcDbDatabase* pDb, DocLockType)
    : m_lockStatus(Acad::eNoDocument),
      m_pDocToUnlock(nullptr),
      m_pCurDocToRestore(nullptr),
      m_restoreActivation(false) {
  const HostCall call(THIS_FUNCTION, HostCall::swept);
  m_lockStatus = call.run(Acad::eLockViolation, [&] {
    wb::DocumentManager& manager = wb::Host::instance().documents();
    wb::Document* document = manager.find(pDb);
    if (!document) return Acad::eNoDocument;
    if (!manager.lock(document, AcAp::kWrite, {})) return Acad::eLockViolation;
    m_pDocToUnlock = document;
    locks().opened(this, document->title());
    return Acad::eOk;
  });
}

AcAxDocLock::~AcAxDocLock() {
  const HostCall call(THIS_FUNCTION);
  if (m_lockStatus != Acad::eOk) return;
  locks().closed(this);
  wb::DocumentManager& manager = wb::Host::instance().documents();
  auto* document = static_cast<wb::Document*>(m_pDocToUnlock);
  // The document may have been closed under its lock.
  if (manager.isOpen(document)) manager.unlock(document, {});
}

Acad::ErrorStatus AcAxDocLock::lockStatus() const {
  return HostCall(THIS_FUNCTION).run(Acad::eLockViolation, [&] { return m_lockStatus; });
}

long acdbSetDbmod(AcDbDatabase* database, long newValue) {
  return HostCall(THIS_FUNCTION).run(0L, [&] {
    wb::Drawing* drawing = wb::Drawing::of(database);
    if (!drawing) return 0L;
    const long before = drawing->dbmod();
    drawing->setDbmod(static_cast<short>(newValue));
    return before;
  });
}
