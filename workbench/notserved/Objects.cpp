#include <dbents.h>
#include <dbmain.h>
#include <xgraph.h>

#include "gate/HostCall.h"

using ErrorStatus = Acad::ErrorStatus;

AcRxObject* AcRxObject::clone() const { return NOT_SERVED; }
ErrorStatus AcRxObject::copyFrom(const AcRxObject*) { return NOT_SERVED; }
Adesk::Boolean AcRxObject::isEqualTo(const AcRxObject*) const { return NOT_SERVED; }
AcRx::Ordering AcRxObject::comparedTo(const AcRxObject*) const { return NOT_SERVED; }

AcGiDrawable::DrawableType AcGiDrawable::drawableType() const { return NOT_SERVED; }
Adesk::UInt32 AcGiDrawable::viewportDrawLogicalFlags(AcGiViewportDraw*) { return NOT_SERVED; }
Adesk::Boolean AcGiDrawable::RolloverHit(Adesk::ULongPtr, Adesk::ULongPtr, Adesk::Boolean) {
  return NOT_SERVED;
}

AcRxObject* AcDbObject::clone() const { return NOT_SERVED; }
ErrorStatus AcDbObject::copyFrom(const AcRxObject*) { return NOT_SERVED; }
Adesk::UInt32 AcDbObject::setAttributes(AcGiDrawableTraits*) { return NOT_SERVED; }
Adesk::Boolean AcDbObject::worldDraw(AcGiWorldDraw*) { return NOT_SERVED; }
void AcDbObject::viewportDraw(AcGiViewportDraw*) { NOT_SERVED; }
Adesk::Boolean AcDbObject::isPersistent() const { return NOT_SERVED; }
AcDbObjectId AcDbObject::id() const { return NOT_SERVED; }
void AcDbObject::setGsNode(AcGsNode*) { NOT_SERVED; }
AcGsNode* AcDbObject::gsNode() const { return NOT_SERVED; }
ErrorStatus AcDbObject::setOwnerId(AcDbObjectId) { return NOT_SERVED; }
ErrorStatus AcDbObject::subOpen(AcDb::OpenMode) { return NOT_SERVED; }
ErrorStatus AcDbObject::subCancel() { return NOT_SERVED; }
ErrorStatus AcDbObject::subClose() { return NOT_SERVED; }
ErrorStatus AcDbObject::subErase(Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbObject::subHandOverTo(AcDbObject*) { return NOT_SERVED; }
ErrorStatus AcDbObject::subSwapIdWith(AcDbObjectId, Adesk::Boolean, Adesk::Boolean) {
  return NOT_SERVED;
}
ErrorStatus AcDbObject::swapReferences(const AcDbIdMapping&) { return NOT_SERVED; }
ErrorStatus AcDbObject::audit(AcDbAuditInfo*) { return NOT_SERVED; }
ErrorStatus AcDbObject::dwgInFields(AcDbDwgFiler*) { return NOT_SERVED; }
ErrorStatus AcDbObject::dwgOutFields(AcDbDwgFiler*) const { return NOT_SERVED; }
ErrorStatus AcDbObject::dxfInFields(AcDbDxfFiler*) { return NOT_SERVED; }
ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler*) const { return NOT_SERVED; }
AcDb::DuplicateRecordCloning AcDbObject::mergeStyle() const { return NOT_SERVED; }
resbuf* AcDbObject::xData(const ACHAR*) const { return NOT_SERVED; }
ErrorStatus AcDbObject::setXData(const resbuf*) { return NOT_SERVED; }
ErrorStatus AcDbObject::applyPartialUndo(AcDbDwgFiler*, AcRxClass*) { return NOT_SERVED; }
void AcDbObject::addPersistentReactor(AcDbObjectId) { NOT_SERVED; }
ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId) { return NOT_SERVED; }
void AcDbObject::recvPropagateModify(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::xmitPropagateModify() const { NOT_SERVED; }
ErrorStatus AcDbObject::deepClone(AcDbObject*, AcDbObject*&, AcDbIdMapping&, Adesk::Boolean) const {
  return NOT_SERVED;
}
ErrorStatus AcDbObject::wblockClone(AcRxObject*, AcDbObject*&, AcDbIdMapping&,
                                    Adesk::Boolean) const {
  return NOT_SERVED;
}
void AcDbObject::cancelled(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::copied(const AcDbObject*, const AcDbObject*) { NOT_SERVED; }
void AcDbObject::erased(const AcDbObject*, Adesk::Boolean) { NOT_SERVED; }
void AcDbObject::goodbye(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::openedForModify(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::modified(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::subObjModified(const AcDbObject*, const AcDbObject*) { NOT_SERVED; }
void AcDbObject::modifyUndone(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::modifiedXData(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::unappended(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::reappended(const AcDbObject*) { NOT_SERVED; }
void AcDbObject::objectClosed(const AcDbObjectId) { NOT_SERVED; }
void AcDbObject::modifiedGraphics(const AcDbEntity*) { NOT_SERVED; }
ErrorStatus AcDbObject::getObjectSaveVersion(const AcDbDwgFiler*, AcDb::AcDbDwgVersion&,
                                             AcDb::MaintenanceReleaseVersion&) {
  return NOT_SERVED;
}
ErrorStatus AcDbObject::getObjectSaveVersion(const AcDbDxfFiler*, AcDb::AcDbDwgVersion&,
                                             AcDb::MaintenanceReleaseVersion&) {
  return NOT_SERVED;
}
ErrorStatus AcDbObject::decomposeForSave(AcDb::AcDbDwgVersion, AcDbObject*&, AcDbObjectId&,
                                         Adesk::Boolean&) {
  return NOT_SERVED;
}
AcGiDrawable* AcDbObject::drawable() { return NOT_SERVED; }
ErrorStatus AcDbObject::getClassID(CLSID*) const { return NOT_SERVED; }
ErrorStatus AcDbObject::setField(const ACHAR*, AcDbField*, AcDbObjectId&) { return NOT_SERVED; }
ErrorStatus AcDbObject::removeField(AcDbObjectId) { return NOT_SERVED; }
ErrorStatus AcDbObject::removeField(const ACHAR*, AcDbObjectId&) { return NOT_SERVED; }
ErrorStatus AcDbObject::removeField(const ACHAR*) { return NOT_SERVED; }

Adesk::UInt32 AcDbEntity::setAttributes(AcGiDrawableTraits*) { return NOT_SERVED; }
Adesk::Boolean AcDbEntity::worldDraw(AcGiWorldDraw*) { return NOT_SERVED; }
void AcDbEntity::viewportDraw(AcGiViewportDraw*) { NOT_SERVED; }
void AcDbEntity::setGsNode(AcGsNode*) { NOT_SERVED; }
AcGsNode* AcDbEntity::gsNode() const { return NOT_SERVED; }
ErrorStatus AcDbEntity::audit(AcDbAuditInfo*) { return NOT_SERVED; }
ErrorStatus AcDbEntity::dwgInFields(AcDbDwgFiler*) { return NOT_SERVED; }
ErrorStatus AcDbEntity::dwgOutFields(AcDbDwgFiler*) const { return NOT_SERVED; }
ErrorStatus AcDbEntity::dxfInFields(AcDbDxfFiler*) { return NOT_SERVED; }
ErrorStatus AcDbEntity::dxfOutFields(AcDbDxfFiler*) const { return NOT_SERVED; }
ErrorStatus AcDbEntity::applyPartialUndo(AcDbDwgFiler*, AcRxClass*) { return NOT_SERVED; }
AcGiDrawable* AcDbEntity::drawable() { return NOT_SERVED; }
ErrorStatus AcDbEntity::getClassID(CLSID*) const { return NOT_SERVED; }
ErrorStatus AcDbEntity::setColor(const AcCmColor&, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setTransparency(const AcCmTransparency&, Adesk::Boolean) {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::setPlotStyleName(const ACHAR*, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setPlotStyleName(AcDb::PlotStyleNameType, AcDbObjectId, Adesk::Boolean) {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::setLayer(const ACHAR*, Adesk::Boolean, bool) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setLayer(AcDbObjectId, Adesk::Boolean, bool) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setLinetype(const ACHAR*, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setLinetype(AcDbObjectId, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setMaterial(const ACHAR*, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setMaterial(AcDbObjectId, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::getMaterialMapper(AcGiMapper&) const { return NOT_SERVED; }
ErrorStatus AcDbEntity::setMaterialMapper(const AcGiMapper&, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setLinetypeScale(double, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility, Adesk::Boolean) { return NOT_SERVED; }
ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight, Adesk::Boolean) { return NOT_SERVED; }
AcDb::CollisionType AcDbEntity::collisionType() const { return NOT_SERVED; }
bool AcDbEntity::castShadows() const { return NOT_SERVED; }
void AcDbEntity::setCastShadows(bool) { NOT_SERVED; }
bool AcDbEntity::receiveShadows() const { return NOT_SERVED; }
void AcDbEntity::setReceiveShadows(bool) { NOT_SERVED; }
Adesk::Boolean AcDbEntity::isPlanar() const { return NOT_SERVED; }
ErrorStatus AcDbEntity::getPlane(AcGePlane&, AcDb::Planarity&) const { return NOT_SERVED; }
void AcDbEntity::getEcs(AcGeMatrix3d&) const { NOT_SERVED; }
ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents&) const { return NOT_SERVED; }
ErrorStatus AcDbEntity::addSubentPaths(const AcDbFullSubentPathArray&) { return NOT_SERVED; }
ErrorStatus AcDbEntity::deleteSubentPaths(const AcDbFullSubentPathArray&) { return NOT_SERVED; }
ErrorStatus AcDbEntity::getSubentClassId(const AcDbFullSubentPath&, CLSID*) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::transformSubentPathsBy(const AcDbFullSubentPathArray&,
                                               const AcGeMatrix3d&) {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getGripPointsAtSubentPath(const AcDbFullSubentPath&, AcDbGripDataPtrArray&,
                                                  const double, const int, const AcGeVector3d&,
                                                  const int) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::moveGripPointsAtSubentPaths(const AcDbFullSubentPathArray&,
                                                    const AcDbVoidPtrArray&, const AcGeVector3d&,
                                                    const int) {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getSubentPathGeomExtents(const AcDbFullSubentPath&, AcDbExtents&) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker,
                                                 const AcGePoint3d&, const AcGeMatrix3d&, int&,
                                                 AcDbFullSubentPath*&, int, AcDbObjectId*) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker,
                                                 const AcGePoint3d&, const AcGeFastTransform&, int&,
                                                 AcDbFullSubentPath*&, int, AcDbObjectId*) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getGsMarkersAtSubentPath(const AcDbFullSubentPath&,
                                                 AcArray<Adesk::GsMarker>&) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::highlight(const AcDbFullSubentPath&, const Adesk::Boolean) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::unhighlight(const AcDbFullSubentPath&, const Adesk::Boolean) const {
  return NOT_SERVED;
}
AcDbEntity* AcDbEntity::subentPtr(const AcDbFullSubentPath&) const { return NOT_SERVED; }
ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                       const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray&,
                                       AcDbIntArray&) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                       const AcGePoint3d&, const AcGeFastTransform&,
                                       AcGePoint3dArray&, AcDbIntArray&) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                       const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray&,
                                       AcDbIntArray&, const AcGeMatrix3d&) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                       const AcGePoint3d&, const AcGeFastTransform&,
                                       AcGePoint3dArray&, AcDbIntArray&,
                                       const AcGeMatrix3d&) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getGripPoints(AcGePoint3dArray&, AcDbIntArray&, AcDbIntArray&) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getGripPoints(AcDbGripDataPtrArray&, const double, const int,
                                      const AcGeVector3d&, const int) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbIntArray&, const AcGeVector3d&) {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbVoidPtrArray&, const AcGeVector3d&, const int) {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::getStretchPoints(AcGePoint3dArray&) const { return NOT_SERVED; }
ErrorStatus AcDbEntity::moveStretchPointsAt(const AcDbIntArray&, const AcGeVector3d&) {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&,
                                      Adesk::GsMarker, Adesk::GsMarker) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, const AcGePlane&,
                                      AcGePoint3dArray&, Adesk::GsMarker, Adesk::GsMarker) const {
  return NOT_SERVED;
}
void AcDbEntity::list() const { NOT_SERVED; }
ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d&) { return NOT_SERVED; }
ErrorStatus AcDbEntity::transformBy(const AcGeFastTransform&) { return NOT_SERVED; }
ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d&, AcDbEntity*&) const {
  return NOT_SERVED;
}
ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray&) const { return NOT_SERVED; }
void AcDbEntity::saveAs(AcGiWorldDraw*, AcDb::SaveType) { NOT_SERVED; }
ErrorStatus AcDbEntity::getCompoundObjectTransform(AcGeMatrix3d&) const { return NOT_SERVED; }
void AcDbEntity::subSetDatabaseDefaults(AcDbDatabase*) { NOT_SERVED; }
Adesk::Boolean AcDbEntity::cloneMeForDragging() { return NOT_SERVED; }
bool AcDbEntity::hideMeForDragging() const { return NOT_SERVED; }
void AcDbEntity::dragStatus(const AcDb::DragStat) { NOT_SERVED; }
void AcDbEntity::gripStatus(const AcDb::GripStat) { NOT_SERVED; }
void AcDbEntity::subentGripStatus(const AcDb::GripStat, const AcDbFullSubentPath&) { NOT_SERVED; }
ErrorStatus AcDbEntity::getGripEntityUCS(const void*, AcGeVector3d&, AcGePoint3d&,
                                         AcGeVector3d&) const {
  return NOT_SERVED;
}

Adesk::UInt32 AcDbText::setAttributes(AcGiDrawableTraits*) { return NOT_SERVED; }
ErrorStatus AcDbText::getClassID(CLSID*) const { return NOT_SERVED; }
ErrorStatus AcDbText::setField(const ACHAR*, AcDbField*, AcDbObjectId&) { return NOT_SERVED; }
ErrorStatus AcDbText::removeField(const ACHAR*) { return NOT_SERVED; }
ErrorStatus AcDbText::removeField(const ACHAR*, AcDbObjectId&) { return NOT_SERVED; }
ErrorStatus AcDbText::removeField(AcDbObjectId) { return NOT_SERVED; }
bool AcDbText::castShadows() const { return NOT_SERVED; }
bool AcDbText::receiveShadows() const { return NOT_SERVED; }
Adesk::Boolean AcDbText::isPlanar() const { return NOT_SERVED; }
ErrorStatus AcDbText::getPlane(AcGePlane&, AcDb::Planarity&) const { return NOT_SERVED; }

ErrorStatus AcDbAttribute::getClassID(CLSID*) const { return NOT_SERVED; }

Adesk::Boolean AcDbGraph::findCycles(AcDbGraphNode*) { return NOT_SERVED; }

Adesk::Boolean AcDbXrefGraph::findCycles(AcDbGraphNode*) { return NOT_SERVED; }
