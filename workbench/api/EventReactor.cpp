#include <dbmain.h>
#include <rxevent.h>

#include "gate/HostCall.h"

using wb::HostCall;

// What the host does about an event that an application's reactor doesn't handle: nothing.

void AcRxEventReactor::dwgFileOpened(AcDbDatabase*, ACHAR*) {
  HostCall(L"AcRxEventReactor.dwgFileOpened");
}
void AcRxEventReactor::initialDwgFileOpenComplete(AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.initialDwgFileOpenComplete");
}
void AcRxEventReactor::databaseConstructed(AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.databaseConstructed");
}
void AcRxEventReactor::databaseToBeDestroyed(AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.databaseToBeDestroyed");
}
void AcRxEventReactor::beginSave(AcDbDatabase*, const ACHAR*) {
  HostCall(L"AcRxEventReactor.beginSave");
}
void AcRxEventReactor::saveComplete(AcDbDatabase*, const ACHAR*) {
  HostCall(L"AcRxEventReactor.saveComplete");
}
void AcRxEventReactor::abortSave(AcDbDatabase*) { HostCall(L"AcRxEventReactor.abortSave"); }
void AcRxEventReactor::beginDxfIn(AcDbDatabase*) { HostCall(L"AcRxEventReactor.beginDxfIn"); }
void AcRxEventReactor::abortDxfIn(AcDbDatabase*) { HostCall(L"AcRxEventReactor.abortDxfIn"); }
void AcRxEventReactor::dxfInComplete(AcDbDatabase*) { HostCall(L"AcRxEventReactor.dxfInComplete"); }
void AcRxEventReactor::beginDxfOut(AcDbDatabase*) { HostCall(L"AcRxEventReactor.beginDxfOut"); }
void AcRxEventReactor::abortDxfOut(AcDbDatabase*) { HostCall(L"AcRxEventReactor.abortDxfOut"); }
void AcRxEventReactor::dxfOutComplete(AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.dxfOutComplete");
}
void AcRxEventReactor::beginInsert(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.beginInsert");
}
void AcRxEventReactor::beginInsert(AcDbDatabase*, const AcGeMatrix3d&, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.beginInsert");
}
void AcRxEventReactor::otherInsert(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.otherInsert");
}
void AcRxEventReactor::abortInsert(AcDbDatabase*) { HostCall(L"AcRxEventReactor.abortInsert"); }
void AcRxEventReactor::endInsert(AcDbDatabase*) { HostCall(L"AcRxEventReactor.endInsert"); }
void AcRxEventReactor::wblockNotice(AcDbDatabase*) { HostCall(L"AcRxEventReactor.wblockNotice"); }
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*, const AcGePoint3d*&) {
  HostCall(L"AcRxEventReactor.beginWblock");
}
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*, AcDbObjectId) {
  HostCall(L"AcRxEventReactor.beginWblock");
}
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.beginWblock");
}
void AcRxEventReactor::otherWblock(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.otherWblock");
}
void AcRxEventReactor::abortWblock(AcDbDatabase*) { HostCall(L"AcRxEventReactor.abortWblock"); }
void AcRxEventReactor::endWblock(AcDbDatabase*) { HostCall(L"AcRxEventReactor.endWblock"); }
void AcRxEventReactor::beginWblockObjects(AcDbDatabase*, AcDbIdMapping&) {
  HostCall(L"AcRxEventReactor.beginWblockObjects");
}
void AcRxEventReactor::beginDeepClone(AcDbDatabase*, AcDbIdMapping&) {
  HostCall(L"AcRxEventReactor.beginDeepClone");
}
void AcRxEventReactor::beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus*) {
  HostCall(L"AcRxEventReactor.beginDeepCloneXlation");
}
void AcRxEventReactor::abortDeepClone(AcDbIdMapping&) {
  HostCall(L"AcRxEventReactor.abortDeepClone");
}
void AcRxEventReactor::endDeepClone(AcDbIdMapping&) { HostCall(L"AcRxEventReactor.endDeepClone"); }
void AcRxEventReactor::partialOpenNotice(AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.partialOpenNotice");
}
void AcRxEventReactor::beginAttach(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.beginAttach");
}
void AcRxEventReactor::otherAttach(AcDbDatabase*, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.otherAttach");
}
void AcRxEventReactor::abortAttach(AcDbDatabase*) { HostCall(L"AcRxEventReactor.abortAttach"); }
void AcRxEventReactor::endAttach(AcDbDatabase*) { HostCall(L"AcRxEventReactor.endAttach"); }
void AcRxEventReactor::redirected(AcDbObjectId, AcDbObjectId) {
  HostCall(L"AcRxEventReactor.redirected");
}
void AcRxEventReactor::comandeered(AcDbDatabase*, AcDbObjectId, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.comandeered");
}
void AcRxEventReactor::beginRestore(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {
  HostCall(L"AcRxEventReactor.beginRestore");
}
void AcRxEventReactor::abortRestore(AcDbDatabase*) { HostCall(L"AcRxEventReactor.abortRestore"); }
void AcRxEventReactor::endRestore(AcDbDatabase*) { HostCall(L"AcRxEventReactor.endRestore"); }
void AcRxEventReactor::xrefSubCommandStart(AcDbDatabase*, AcXrefSubCommand,
                                           const AcArray<AcDbObjectId>&, const ACHAR* const*,
                                           const ACHAR* const*, bool&) {
  HostCall(L"AcRxEventReactor.xrefSubCommandStart");
}
void AcRxEventReactor::xrefSubCommandAborted(AcDbDatabase*, AcXrefSubCommand,
                                             const AcArray<AcDbObjectId>&, const ACHAR* const*,
                                             const ACHAR* const*) {
  HostCall(L"AcRxEventReactor.xrefSubCommandAborted");
}
void AcRxEventReactor::preXrefLockFile(AcDbDatabase*, AcDbObjectId) {
  HostCall(L"AcRxEventReactor.preXrefLockFile");
}
