#include <aced.h>

void AcEditorReactor::dwgFileOpened(AcDbDatabase*, ACHAR*) {}
void AcEditorReactor::initialDwgFileOpenComplete(AcDbDatabase*) {}
void AcEditorReactor::databaseConstructed(AcDbDatabase*) {}
void AcEditorReactor::databaseToBeDestroyed(AcDbDatabase*) {}
void AcEditorReactor::beginSave(AcDbDatabase*, const ACHAR*) {}
void AcEditorReactor::saveComplete(AcDbDatabase*, const ACHAR*) {}
void AcEditorReactor::abortSave(AcDbDatabase*) {}
void AcEditorReactor::beginDxfIn(AcDbDatabase*) {}
void AcEditorReactor::abortDxfIn(AcDbDatabase*) {}
void AcEditorReactor::dxfInComplete(AcDbDatabase*) {}
void AcEditorReactor::beginDxfOut(AcDbDatabase*) {}
void AcEditorReactor::abortDxfOut(AcDbDatabase*) {}
void AcEditorReactor::dxfOutComplete(AcDbDatabase*) {}
void AcEditorReactor::beginInsert(AcDbDatabase*, const AcGeMatrix3d&, AcDbDatabase*) {}
void AcEditorReactor::beginInsert(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {}
void AcEditorReactor::otherInsert(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) {}
void AcEditorReactor::abortInsert(AcDbDatabase*) {}
void AcEditorReactor::endInsert(AcDbDatabase*) {}
void AcEditorReactor::wblockNotice(AcDbDatabase*) {}
void AcEditorReactor::beginWblock(AcDbDatabase*, AcDbDatabase*) {}
void AcEditorReactor::beginWblock(AcDbDatabase*, AcDbDatabase*, AcDbObjectId) {}
void AcEditorReactor::beginWblock(AcDbDatabase*, AcDbDatabase*, const AcGePoint3d*&) {}
void AcEditorReactor::otherWblock(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) {}
void AcEditorReactor::abortWblock(AcDbDatabase*) {}
void AcEditorReactor::endWblock(AcDbDatabase*) {}
void AcEditorReactor::beginWblockObjects(AcDbDatabase*, AcDbIdMapping&) {}
void AcEditorReactor::beginDeepClone(AcDbDatabase*, AcDbIdMapping&) {}
void AcEditorReactor::beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus*) {}
void AcEditorReactor::abortDeepClone(AcDbIdMapping&) {}
void AcEditorReactor::endDeepClone(AcDbIdMapping&) {}
void AcEditorReactor::partialOpenNotice(AcDbDatabase*) {}
void AcEditorReactor::beginAttach(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {}
void AcEditorReactor::otherAttach(AcDbDatabase*, AcDbDatabase*) {}
void AcEditorReactor::abortAttach(AcDbDatabase*) {}
void AcEditorReactor::endAttach(AcDbDatabase*) {}
void AcEditorReactor::redirected(AcDbObjectId, AcDbObjectId) {}
void AcEditorReactor::comandeered(AcDbDatabase*, AcDbObjectId, AcDbDatabase*) {}
void AcEditorReactor::beginRestore(AcDbDatabase*, const ACHAR*, AcDbDatabase*) {}
void AcEditorReactor::abortRestore(AcDbDatabase*) {}
void AcEditorReactor::endRestore(AcDbDatabase*) {}
void AcEditorReactor::unknownCommand(const ACHAR*, AcDbVoidPtrArray*) {}
void AcEditorReactor::commandWillStart(const ACHAR*) {}
void AcEditorReactor::commandEnded(const ACHAR*) {}
void AcEditorReactor::commandCancelled(const ACHAR*) {}
void AcEditorReactor::commandFailed(const ACHAR*) {}
void AcEditorReactor::lispWillStart(const ACHAR*) {}
void AcEditorReactor::lispEnded() {}
void AcEditorReactor::lispCancelled() {}
void AcEditorReactor::beginClose(AcDbDatabase*) {}
void AcEditorReactor::beginDwgOpen(ACHAR*) {}
void AcEditorReactor::endDwgOpen(const ACHAR*, AcDbDatabase*) {}
void AcEditorReactor::sysVarChanged(const ACHAR*, Adesk::Boolean) {}
void AcEditorReactor::sysVarWillChange(const ACHAR*) {}
void AcEditorReactor::xrefSubcommandBindItem(AcDbDatabase*, int, AcDbObjectId) {}
void AcEditorReactor::xrefSubcommandAttachItem(AcDbDatabase*, int, const ACHAR*) {}
void AcEditorReactor::xrefSubcommandOverlayItem(AcDbDatabase*, int, const ACHAR*) {}
void AcEditorReactor::xrefSubcommandDetachItem(AcDbDatabase*, int, AcDbObjectId) {}
void AcEditorReactor::xrefSubcommandPathItem(int, AcDbObjectId, const ACHAR*) {}
void AcEditorReactor::xrefSubcommandReloadItem(AcDbDatabase*, int, AcDbObjectId) {}
void AcEditorReactor::xrefSubcommandUnloadItem(AcDbDatabase*, int, AcDbObjectId) {}
void AcEditorReactor::undoSubcommandAuto(int, Adesk::Boolean) {}
void AcEditorReactor::undoSubcommandControl(int, int) {}
void AcEditorReactor::undoSubcommandBegin(int) {}
void AcEditorReactor::undoSubcommandEnd(int) {}
void AcEditorReactor::undoSubcommandMark(int) {}
void AcEditorReactor::undoSubcommandBack(int) {}
void AcEditorReactor::undoSubcommandNumber(int, int) {}
void AcEditorReactor::pickfirstModified() {}
void AcEditorReactor::layoutSwitched(const ACHAR*) {}
void AcEditorReactor::docFrameMovedOrResized(Adesk::LongPtr, bool) {}
void AcEditorReactor::mainFrameMovedOrResized(Adesk::LongPtr, bool) {}
void AcEditorReactor::beginDoubleClick(const AcGePoint3d&) {}
void AcEditorReactor::beginRightClick(const AcGePoint3d&) {}
void AcEditorReactor::toolbarBitmapSizeWillChange(Adesk::Boolean) {}
void AcEditorReactor::toolbarBitmapSizeChanged(Adesk::Boolean) {}
void AcEditorReactor::objectsLazyLoaded(const AcDbObjectIdArray&) {}
void AcEditorReactor::beginQuit() {}
void AcEditorReactor::quitAborted() {}
void AcEditorReactor::quitWillStart() {}
void AcEditorReactor::modelessOperationWillStart(const ACHAR*) {}
void AcEditorReactor::modelessOperationEnded(const ACHAR*) {}
void AcEditorReactor::cmdIUnkModified(const ACHAR*) {}
Acad::ErrorStatus AcEditorReactor::xrefSubCommandStart(AcXrefSubCommand, const AcDbObjectIdArray&,
                                                       const ACHAR* const*, const ACHAR* const*) {
  return Acad::eOk;
}
void AcEditorReactor::preXrefLockFile(AcDbObjectId) {}
void AcEditorReactor::viewChanged() {}
