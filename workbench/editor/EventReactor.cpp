#include <dbmain.h>
#include <rxevent.h>

// What the host does about an event that an application's reactor doesn't handle: nothing.

void AcRxEventReactor::dwgFileOpened(AcDbDatabase*, ACHAR*) {}
void AcRxEventReactor::initialDwgFileOpenComplete(AcDbDatabase*) {}
void AcRxEventReactor::databaseConstructed(AcDbDatabase*) {}
void AcRxEventReactor::databaseToBeDestroyed(AcDbDatabase*) {}
void AcRxEventReactor::beginSave(AcDbDatabase*, const ACHAR*) {}
void AcRxEventReactor::saveComplete(AcDbDatabase*, const ACHAR*) {}
void AcRxEventReactor::abortSave(AcDbDatabase*) {}
void AcRxEventReactor::beginDxfIn(AcDbDatabase*) {}
void AcRxEventReactor::abortDxfIn(AcDbDatabase*) {}
void AcRxEventReactor::dxfInComplete(AcDbDatabase*) {}
void AcRxEventReactor::beginDxfOut(AcDbDatabase*) {}
void AcRxEventReactor::abortDxfOut(AcDbDatabase*) {}
void AcRxEventReactor::dxfOutComplete(AcDbDatabase*) {}
void AcRxEventReactor::beginInsert(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {}
void AcRxEventReactor::beginInsert(AcDbDatabase*, const AcGeMatrix3d&, AcDbDatabase*) {}
void AcRxEventReactor::otherInsert(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) {}
void AcRxEventReactor::abortInsert(AcDbDatabase*) {}
void AcRxEventReactor::endInsert(AcDbDatabase*) {}
void AcRxEventReactor::wblockNotice(AcDbDatabase*) {}
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*, const AcGePoint3d*&) {}
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*, AcDbObjectId) {}
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*) {}
void AcRxEventReactor::otherWblock(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) {}
void AcRxEventReactor::abortWblock(AcDbDatabase*) {}
void AcRxEventReactor::endWblock(AcDbDatabase*) {}
void AcRxEventReactor::beginWblockObjects(AcDbDatabase*, AcDbIdMapping&) {}
void AcRxEventReactor::beginDeepClone(AcDbDatabase*, AcDbIdMapping&) {}
void AcRxEventReactor::beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus*) {}
void AcRxEventReactor::abortDeepClone(AcDbIdMapping&) {}
void AcRxEventReactor::endDeepClone(AcDbIdMapping&) {}
void AcRxEventReactor::partialOpenNotice(AcDbDatabase*) {}
void AcRxEventReactor::beginAttach(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {}
void AcRxEventReactor::otherAttach(AcDbDatabase*, AcDbDatabase*) {}
void AcRxEventReactor::abortAttach(AcDbDatabase*) {}
void AcRxEventReactor::endAttach(AcDbDatabase*) {}
void AcRxEventReactor::redirected(AcDbObjectId, AcDbObjectId) {}
void AcRxEventReactor::comandeered(AcDbDatabase*, AcDbObjectId, AcDbDatabase*) {}
void AcRxEventReactor::beginRestore(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {}
void AcRxEventReactor::abortRestore(AcDbDatabase*) {}
void AcRxEventReactor::endRestore(AcDbDatabase*) {}
void AcRxEventReactor::xrefSubCommandStart(AcDbDatabase*, AcXrefSubCommand,
                                           const AcArray<AcDbObjectId>&, const ACHAR* const*,
                                           const ACHAR* const*, bool&) {}
void AcRxEventReactor::xrefSubCommandAborted(AcDbDatabase*, AcXrefSubCommand,
                                             const AcArray<AcDbObjectId>&, const ACHAR* const*,
                                             const ACHAR* const*) {}
void AcRxEventReactor::preXrefLockFile(AcDbDatabase*, AcDbObjectId) {}
