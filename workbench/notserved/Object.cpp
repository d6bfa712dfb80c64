#include <dbmain.h>

#include "gate/NotServed.h"

using wb::NotServed;

AcRxObject* AcRxObject::clone() const { return NotServed(L"AcRxObject.clone"); }
Acad::ErrorStatus AcRxObject::copyFrom(const AcRxObject*) {
  return NotServed(L"AcRxObject.copyFrom");
}
Adesk::Boolean AcRxObject::isEqualTo(const AcRxObject*) const {
  return NotServed(L"AcRxObject.isEqualTo");
}
AcRx::Ordering AcRxObject::comparedTo(const AcRxObject*) const {
  return NotServed(L"AcRxObject.comparedTo");
}

AcGiDrawable::DrawableType AcGiDrawable::drawableType() const {
  return NotServed(L"AcGiDrawable.drawableType");
}
Adesk::UInt32 AcGiDrawable::viewportDrawLogicalFlags(AcGiViewportDraw*) {
  return NotServed(L"AcGiDrawable.viewportDrawLogicalFlags");
}
Adesk::Boolean AcGiDrawable::RolloverHit(Adesk::ULongPtr, Adesk::ULongPtr, Adesk::Boolean) {
  return NotServed(L"AcGiDrawable.RolloverHit");
}

AcRxObject* AcDbObject::clone() const { return NotServed(L"AcDbObject.clone"); }
Acad::ErrorStatus AcDbObject::copyFrom(const AcRxObject*) {
  return NotServed(L"AcDbObject.copyFrom");
}
Adesk::UInt32 AcDbObject::setAttributes(AcGiDrawableTraits*) {
  return NotServed(L"AcDbObject.setAttributes");
}
Adesk::Boolean AcDbObject::worldDraw(AcGiWorldDraw*) { return NotServed(L"AcDbObject.worldDraw"); }
void AcDbObject::viewportDraw(AcGiViewportDraw*) { NotServed(L"AcDbObject.viewportDraw"); }
Adesk::Boolean AcDbObject::isPersistent() const { return NotServed(L"AcDbObject.isPersistent"); }
AcDbObjectId AcDbObject::id() const { return NotServed(L"AcDbObject.id"); }
void AcDbObject::setGsNode(AcGsNode*) { NotServed(L"AcDbObject.setGsNode"); }
AcGsNode* AcDbObject::gsNode() const { return NotServed(L"AcDbObject.gsNode"); }
Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId) {
  return NotServed(L"AcDbObject.setOwnerId");
}
Acad::ErrorStatus AcDbObject::subOpen(AcDb::OpenMode) { return NotServed(L"AcDbObject.subOpen"); }
Acad::ErrorStatus AcDbObject::subCancel() { return NotServed(L"AcDbObject.subCancel"); }
Acad::ErrorStatus AcDbObject::subClose() { return NotServed(L"AcDbObject.subClose"); }
Acad::ErrorStatus AcDbObject::subErase(Adesk::Boolean) { return NotServed(L"AcDbObject.subErase"); }
Acad::ErrorStatus AcDbObject::subHandOverTo(AcDbObject*) {
  return NotServed(L"AcDbObject.subHandOverTo");
}
Acad::ErrorStatus AcDbObject::subSwapIdWith(AcDbObjectId, Adesk::Boolean, Adesk::Boolean) {
  return NotServed(L"AcDbObject.subSwapIdWith");
}
Acad::ErrorStatus AcDbObject::swapReferences(const AcDbIdMapping&) {
  return NotServed(L"AcDbObject.swapReferences");
}
Acad::ErrorStatus AcDbObject::audit(AcDbAuditInfo*) { return NotServed(L"AcDbObject.audit"); }
Acad::ErrorStatus AcDbObject::dwgInFields(AcDbDwgFiler*) {
  return NotServed(L"AcDbObject.dwgInFields");
}
Acad::ErrorStatus AcDbObject::dwgOutFields(AcDbDwgFiler*) const {
  return NotServed(L"AcDbObject.dwgOutFields");
}
Acad::ErrorStatus AcDbObject::dxfInFields(AcDbDxfFiler*) {
  return NotServed(L"AcDbObject.dxfInFields");
}
Acad::ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler*) const {
  return NotServed(L"AcDbObject.dxfOutFields");
}
AcDb::DuplicateRecordCloning AcDbObject::mergeStyle() const {
  return NotServed(L"AcDbObject.mergeStyle");
}
resbuf* AcDbObject::xData(const ACHAR*) const { return NotServed(L"AcDbObject.xData"); }
Acad::ErrorStatus AcDbObject::setXData(const resbuf*) { return NotServed(L"AcDbObject.setXData"); }
Acad::ErrorStatus AcDbObject::applyPartialUndo(AcDbDwgFiler*, AcRxClass*) {
  return NotServed(L"AcDbObject.applyPartialUndo");
}
void AcDbObject::addPersistentReactor(AcDbObjectId) {
  NotServed(L"AcDbObject.addPersistentReactor");
}
Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId) {
  return NotServed(L"AcDbObject.removePersistentReactor");
}
void AcDbObject::recvPropagateModify(const AcDbObject*) {
  NotServed(L"AcDbObject.recvPropagateModify");
}
void AcDbObject::xmitPropagateModify() const { NotServed(L"AcDbObject.xmitPropagateModify"); }
Acad::ErrorStatus AcDbObject::deepClone(AcDbObject*, AcDbObject*&, AcDbIdMapping&,
                                        Adesk::Boolean) const {
  return NotServed(L"AcDbObject.deepClone");
}
Acad::ErrorStatus AcDbObject::wblockClone(AcRxObject*, AcDbObject*&, AcDbIdMapping&,
                                          Adesk::Boolean) const {
  return NotServed(L"AcDbObject.wblockClone");
}
void AcDbObject::cancelled(const AcDbObject*) { NotServed(L"AcDbObject.cancelled"); }
void AcDbObject::copied(const AcDbObject*, const AcDbObject*) { NotServed(L"AcDbObject.copied"); }
void AcDbObject::erased(const AcDbObject*, Adesk::Boolean) { NotServed(L"AcDbObject.erased"); }
void AcDbObject::goodbye(const AcDbObject*) { NotServed(L"AcDbObject.goodbye"); }
void AcDbObject::openedForModify(const AcDbObject*) { NotServed(L"AcDbObject.openedForModify"); }
void AcDbObject::modified(const AcDbObject*) { NotServed(L"AcDbObject.modified"); }
void AcDbObject::subObjModified(const AcDbObject*, const AcDbObject*) {
  NotServed(L"AcDbObject.subObjModified");
}
void AcDbObject::modifyUndone(const AcDbObject*) { NotServed(L"AcDbObject.modifyUndone"); }
void AcDbObject::modifiedXData(const AcDbObject*) { NotServed(L"AcDbObject.modifiedXData"); }
void AcDbObject::unappended(const AcDbObject*) { NotServed(L"AcDbObject.unappended"); }
void AcDbObject::reappended(const AcDbObject*) { NotServed(L"AcDbObject.reappended"); }
void AcDbObject::objectClosed(const AcDbObjectId) { NotServed(L"AcDbObject.objectClosed"); }
void AcDbObject::modifiedGraphics(const AcDbEntity*) { NotServed(L"AcDbObject.modifiedGraphics"); }
Acad::ErrorStatus AcDbObject::getObjectSaveVersion(const AcDbDwgFiler*, AcDb::AcDbDwgVersion&,
                                                   AcDb::MaintenanceReleaseVersion&) {
  return NotServed(L"AcDbObject.getObjectSaveVersion");
}
Acad::ErrorStatus AcDbObject::getObjectSaveVersion(const AcDbDxfFiler*, AcDb::AcDbDwgVersion&,
                                                   AcDb::MaintenanceReleaseVersion&) {
  return NotServed(L"AcDbObject.getObjectSaveVersion");
}
Acad::ErrorStatus AcDbObject::decomposeForSave(AcDb::AcDbDwgVersion, AcDbObject*&, AcDbObjectId&,
                                               Adesk::Boolean&) {
  return NotServed(L"AcDbObject.decomposeForSave");
}
AcGiDrawable* AcDbObject::drawable() { return NotServed(L"AcDbObject.drawable"); }
Acad::ErrorStatus AcDbObject::getClassID(CLSID*) const {
  return NotServed(L"AcDbObject.getClassID");
}
Acad::ErrorStatus AcDbObject::setField(const ACHAR*, AcDbField*, AcDbObjectId&) {
  return NotServed(L"AcDbObject.setField");
}
Acad::ErrorStatus AcDbObject::removeField(AcDbObjectId) {
  return NotServed(L"AcDbObject.removeField");
}
Acad::ErrorStatus AcDbObject::removeField(const ACHAR*, AcDbObjectId&) {
  return NotServed(L"AcDbObject.removeField");
}
Acad::ErrorStatus AcDbObject::removeField(const ACHAR*) {
  return NotServed(L"AcDbObject.removeField");
}
