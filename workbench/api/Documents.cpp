#include <acdocman.h>
#include <axlock.h>

#include "core/Accounts.h"
#include "core/SessionState.h"
#include "database/Drawing.h"
#include "editor/Host.h"
#include "foundation/HostExtras.h"
#include "gate/HostCall.h"

using namespace wb;

namespace {

struct DocumentLocks : HandleLedger<const AcAxDocLock*> {
  DocumentLocks() : HandleLedger(L"document lock") {}
};

}  // namespace

AcApDocManager* acDocManagerPtr() {
  const HostCall call(THIS_FUNCTION);
  return &Host::instance().documents();
}

AcAxDocLock::AcAxDocLock(AcDbDatabase* pDb, DocLockType)
    : m_lockStatus(Acad::eNoDocument),
      m_pDocToUnlock(nullptr),
      m_pCurDocToRestore(nullptr),
      m_restoreActivation(false) {
  const HostCall call(THIS_FUNCTION, HostCall::swept);
  m_lockStatus = call.run(Acad::eLockViolation, [&] {
    DocumentManager& manager = Host::instance().documents();
    Document* document = manager.find(pDb);
    if (!document) return Acad::eNoDocument;
    if (!manager.lock(document, AcAp::kWrite, {})) return Acad::eLockViolation;
    m_pDocToUnlock = document;
    sessionPart<DocumentLocks>().opened(this, document->title());
    return Acad::eOk;
  });
}

AcAxDocLock::~AcAxDocLock() {
  const HostCall call(THIS_FUNCTION);
  if (m_lockStatus != Acad::eOk) return;
  sessionPart<DocumentLocks>().closed(this);
  DocumentManager& manager = Host::instance().documents();
  auto* document = static_cast<Document*>(m_pDocToUnlock);
  // The document may have been closed under its lock.
  if (manager.isOpen(document)) manager.unlock(document, {});
}

Acad::ErrorStatus AcAxDocLock::lockStatus() const {
  return HostCall(THIS_FUNCTION).run(Acad::eLockViolation, [&] { return m_lockStatus; });
}

long acdbSetDbmod(AcDbDatabase* database, long newValue) {
  return HostCall(THIS_FUNCTION).run(0L, [&] {
    Drawing* drawing = Drawing::of(database);
    if (!drawing) return 0L;
    const long before = drawing->dbmod();
    drawing->setDbmod(static_cast<short>(newValue));
    return before;
  });
}
