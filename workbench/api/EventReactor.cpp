#include <dbmain.h>
#include <rxevent.h>

#include "gate/HostCall.h"

// What the host does about an event that an application's reactor doesn't handle: nothing.
#define PASS (wb::HostCall(THIS_FUNCTION))

using Reactor = AcRxEventReactor;

void Reactor::dwgFileOpened(AcDbDatabase*, ACHAR*) { PASS; }
void Reactor::initialDwgFileOpenComplete(AcDbDatabase*) { PASS; }
void Reactor::databaseConstructed(AcDbDatabase*) { PASS; }
void Reactor::databaseToBeDestroyed(AcDbDatabase*) { PASS; }
void Reactor::beginSave(AcDbDatabase*, const ACHAR*) { PASS; }
void Reactor::saveComplete(AcDbDatabase*, const ACHAR*) { PASS; }
void Reactor::abortSave(AcDbDatabase*) { PASS; }
void Reactor::beginDxfIn(AcDbDatabase*) { PASS; }
void Reactor::abortDxfIn(AcDbDatabase*) { PASS; }
void Reactor::dxfInComplete(AcDbDatabase*) { PASS; }
void Reactor::beginDxfOut(AcDbDatabase*) { PASS; }
void Reactor::abortDxfOut(AcDbDatabase*) { PASS; }
void Reactor::dxfOutComplete(AcDbDatabase*) { PASS; }
void Reactor::beginInsert(AcDbDatabase*, const ACHAR*, AcDbDatabase*) { PASS; }
void Reactor::beginInsert(AcDbDatabase*, const AcGeMatrix3d&, AcDbDatabase*) { PASS; }
void Reactor::otherInsert(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) { PASS; }
void Reactor::abortInsert(AcDbDatabase*) { PASS; }
void Reactor::endInsert(AcDbDatabase*) { PASS; }
void Reactor::wblockNotice(AcDbDatabase*) { PASS; }
void Reactor::beginWblock(AcDbDatabase*, AcDbDatabase*, const AcGePoint3d*&) { PASS; }
void Reactor::beginWblock(AcDbDatabase*, AcDbDatabase*, AcDbObjectId) { PASS; }
void Reactor::beginWblock(AcDbDatabase*, AcDbDatabase*) { PASS; }
void Reactor::otherWblock(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) { PASS; }
void Reactor::abortWblock(AcDbDatabase*) { PASS; }
void Reactor::endWblock(AcDbDatabase*) { PASS; }
void Reactor::beginWblockObjects(AcDbDatabase*, AcDbIdMapping&) { PASS; }
void Reactor::beginDeepClone(AcDbDatabase*, AcDbIdMapping&) { PASS; }
void Reactor::beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus*) { PASS; }
void Reactor::abortDeepClone(AcDbIdMapping&) { PASS; }
void Reactor::endDeepClone(AcDbIdMapping&) { PASS; }
void Reactor::partialOpenNotice(AcDbDatabase*) { PASS; }
void Reactor::beginAttach(AcDbDatabase*, const ACHAR*, AcDbDatabase*) { PASS; }
void Reactor::otherAttach(AcDbDatabase*, AcDbDatabase*) { PASS; }
void Reactor::abortAttach(AcDbDatabase*) { PASS; }
void Reactor::endAttach(AcDbDatabase*) { PASS; }
void Reactor::redirected(AcDbObjectId, AcDbObjectId) { PASS; }
void Reactor::comandeered(AcDbDatabase*, AcDbObjectId, AcDbDatabase*) { PASS; }
void Reactor::beginRestore(AcDbDatabase*, const ACHAR*, AcDbDatabase*) { PASS; }
void Reactor::abortRestore(AcDbDatabase*) { PASS; }
void Reactor::endRestore(AcDbDatabase*) { PASS; }
void Reactor::xrefSubCommandStart(AcDbDatabase*, AcXrefSubCommand, const AcArray<AcDbObjectId>&,
                                  const ACHAR* const*, const ACHAR* const*, bool&) {
  PASS;
}
void Reactor::xrefSubCommandAborted(AcDbDatabase*, AcXrefSubCommand, const AcArray<AcDbObjectId>&,
                                    const ACHAR* const*, const ACHAR* const*) {
  PASS;
}
void Reactor::preXrefLockFile(AcDbDatabase*, AcDbObjectId) { PASS; }
