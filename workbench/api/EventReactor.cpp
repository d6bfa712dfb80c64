#include <dbmain.h>
#include <rxevent.h>

#include "gate/HostCall.h"

namespace {

// What the host does about an event that an application's reactor doesn't handle: nothing.
void pass(const wchar_t* name) { const wb::HostCall call(name); }

}  // namespace

void AcRxEventReactor::dwgFileOpened(AcDbDatabase*, ACHAR*) {
  pass(L"AcRxEventReactor.dwgFileOpened");
}
void AcRxEventReactor::initialDwgFileOpenComplete(AcDbDatabase*) {
  pass(L"AcRxEventReactor.initialDwgFileOpenComplete");
}
void AcRxEventReactor::databaseConstructed(AcDbDatabase*) {
  pass(L"AcRxEventReactor.databaseConstructed");
}
void AcRxEventReactor::databaseToBeDestroyed(AcDbDatabase*) {
  pass(L"AcRxEventReactor.databaseToBeDestroyed");
}
void AcRxEventReactor::beginSave(AcDbDatabase*, const ACHAR*) {
  pass(L"AcRxEventReactor.beginSave");
}
void AcRxEventReactor::saveComplete(AcDbDatabase*, const ACHAR*) {
  pass(L"AcRxEventReactor.saveComplete");
}
void AcRxEventReactor::abortSave(AcDbDatabase*) { pass(L"AcRxEventReactor.abortSave"); }
void AcRxEventReactor::beginDxfIn(AcDbDatabase*) { pass(L"AcRxEventReactor.beginDxfIn"); }
void AcRxEventReactor::abortDxfIn(AcDbDatabase*) { pass(L"AcRxEventReactor.abortDxfIn"); }
void AcRxEventReactor::dxfInComplete(AcDbDatabase*) { pass(L"AcRxEventReactor.dxfInComplete"); }
void AcRxEventReactor::beginDxfOut(AcDbDatabase*) { pass(L"AcRxEventReactor.beginDxfOut"); }
void AcRxEventReactor::abortDxfOut(AcDbDatabase*) { pass(L"AcRxEventReactor.abortDxfOut"); }
void AcRxEventReactor::dxfOutComplete(AcDbDatabase*) { pass(L"AcRxEventReactor.dxfOutComplete"); }
void AcRxEventReactor::beginInsert(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {
  pass(L"AcRxEventReactor.beginInsert");
}
void AcRxEventReactor::beginInsert(AcDbDatabase*, const AcGeMatrix3d&, AcDbDatabase*) {
  pass(L"AcRxEventReactor.beginInsert");
}
void AcRxEventReactor::otherInsert(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) {
  pass(L"AcRxEventReactor.otherInsert");
}
void AcRxEventReactor::abortInsert(AcDbDatabase*) { pass(L"AcRxEventReactor.abortInsert"); }
void AcRxEventReactor::endInsert(AcDbDatabase*) { pass(L"AcRxEventReactor.endInsert"); }
void AcRxEventReactor::wblockNotice(AcDbDatabase*) { pass(L"AcRxEventReactor.wblockNotice"); }
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*, const AcGePoint3d*&) {
  pass(L"AcRxEventReactor.beginWblock");
}
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*, AcDbObjectId) {
  pass(L"AcRxEventReactor.beginWblock");
}
void AcRxEventReactor::beginWblock(AcDbDatabase*, AcDbDatabase*) {
  pass(L"AcRxEventReactor.beginWblock");
}
void AcRxEventReactor::otherWblock(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) {
  pass(L"AcRxEventReactor.otherWblock");
}
void AcRxEventReactor::abortWblock(AcDbDatabase*) { pass(L"AcRxEventReactor.abortWblock"); }
void AcRxEventReactor::endWblock(AcDbDatabase*) { pass(L"AcRxEventReactor.endWblock"); }
void AcRxEventReactor::beginWblockObjects(AcDbDatabase*, AcDbIdMapping&) {
  pass(L"AcRxEventReactor.beginWblockObjects");
}
void AcRxEventReactor::beginDeepClone(AcDbDatabase*, AcDbIdMapping&) {
  pass(L"AcRxEventReactor.beginDeepClone");
}
void AcRxEventReactor::beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus*) {
  pass(L"AcRxEventReactor.beginDeepCloneXlation");
}
void AcRxEventReactor::abortDeepClone(AcDbIdMapping&) { pass(L"AcRxEventReactor.abortDeepClone"); }
void AcRxEventReactor::endDeepClone(AcDbIdMapping&) { pass(L"AcRxEventReactor.endDeepClone"); }
void AcRxEventReactor::partialOpenNotice(AcDbDatabase*) {
  pass(L"AcRxEventReactor.partialOpenNotice");
}
void AcRxEventReactor::beginAttach(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {
  pass(L"AcRxEventReactor.beginAttach");
}
void AcRxEventReactor::otherAttach(AcDbDatabase*, AcDbDatabase*) {
  pass(L"AcRxEventReactor.otherAttach");
}
void AcRxEventReactor::abortAttach(AcDbDatabase*) { pass(L"AcRxEventReactor.abortAttach"); }
void AcRxEventReactor::endAttach(AcDbDatabase*) { pass(L"AcRxEventReactor.endAttach"); }
void AcRxEventReactor::redirected(AcDbObjectId, AcDbObjectId) {
  pass(L"AcRxEventReactor.redirected");
}
void AcRxEventReactor::comandeered(AcDbDatabase*, AcDbObjectId, AcDbDatabase*) {
  pass(L"AcRxEventReactor.comandeered");
}
void AcRxEventReactor::beginRestore(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {
  pass(L"AcRxEventReactor.beginRestore");
}
void AcRxEventReactor::abortRestore(AcDbDatabase*) { pass(L"AcRxEventReactor.abortRestore"); }
void AcRxEventReactor::endRestore(AcDbDatabase*) { pass(L"AcRxEventReactor.endRestore"); }
void AcRxEventReactor::xrefSubCommandStart(AcDbDatabase*, AcXrefSubCommand,
                                           const AcArray<AcDbObjectId>&, const ACHAR* const*,
                                           const ACHAR* const*, bool&) {
  pass(L"AcRxEventReactor.xrefSubCommandStart");
}
void AcRxEventReactor::xrefSubCommandAborted(AcDbDatabase*, AcXrefSubCommand,
                                             const AcArray<AcDbObjectId>&, const ACHAR* const*,
                                             const ACHAR* const*) {
  pass(L"AcRxEventReactor.xrefSubCommandAborted");
}
void AcRxEventReactor::preXrefLockFile(AcDbDatabase*, AcDbObjectId) {
  pass(L"AcRxEventReactor.preXrefLockFile");
}
