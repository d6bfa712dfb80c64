#include <dbents.h>

#include "gate/NotServed.h"

using wb::NotServed;

Adesk::UInt32 AcDbEntity::setAttributes(AcGiDrawableTraits*) {
  return NotServed(L"AcDbEntity.setAttributes");
}
Adesk::Boolean AcDbEntity::worldDraw(AcGiWorldDraw*) { return NotServed(L"AcDbEntity.worldDraw"); }
void AcDbEntity::viewportDraw(AcGiViewportDraw*) { NotServed(L"AcDbEntity.viewportDraw"); }
void AcDbEntity::setGsNode(AcGsNode*) { NotServed(L"AcDbEntity.setGsNode"); }
AcGsNode* AcDbEntity::gsNode() const { return NotServed(L"AcDbEntity.gsNode"); }
Acad::ErrorStatus AcDbEntity::audit(AcDbAuditInfo*) { return NotServed(L"AcDbEntity.audit"); }
Acad::ErrorStatus AcDbEntity::dwgInFields(AcDbDwgFiler*) {
  return NotServed(L"AcDbEntity.dwgInFields");
}
Acad::ErrorStatus AcDbEntity::dwgOutFields(AcDbDwgFiler*) const {
  return NotServed(L"AcDbEntity.dwgOutFields");
}
Acad::ErrorStatus AcDbEntity::dxfInFields(AcDbDxfFiler*) {
  return NotServed(L"AcDbEntity.dxfInFields");
}
Acad::ErrorStatus AcDbEntity::dxfOutFields(AcDbDxfFiler*) const {
  return NotServed(L"AcDbEntity.dxfOutFields");
}
Acad::ErrorStatus AcDbEntity::applyPartialUndo(AcDbDwgFiler*, AcRxClass*) {
  return NotServed(L"AcDbEntity.applyPartialUndo");
}
AcGiDrawable* AcDbEntity::drawable() { return NotServed(L"AcDbEntity.drawable"); }
Acad::ErrorStatus AcDbEntity::getClassID(CLSID*) const {
  return NotServed(L"AcDbEntity.getClassID");
}
Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor&, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setColor");
}
Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setColorIndex");
}
Acad::ErrorStatus AcDbEntity::setTransparency(const AcCmTransparency&, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setTransparency");
}
Acad::ErrorStatus AcDbEntity::setPlotStyleName(const ACHAR*, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setPlotStyleName");
}
Acad::ErrorStatus AcDbEntity::setPlotStyleName(AcDb::PlotStyleNameType, AcDbObjectId,
                                               Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setPlotStyleName");
}
Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR*, Adesk::Boolean, bool) {
  return NotServed(L"AcDbEntity.setLayer");
}
Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId, Adesk::Boolean, bool) {
  return NotServed(L"AcDbEntity.setLayer");
}
Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR*, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setLinetype");
}
Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setLinetype");
}
Acad::ErrorStatus AcDbEntity::setMaterial(const ACHAR*, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setMaterial");
}
Acad::ErrorStatus AcDbEntity::setMaterial(AcDbObjectId, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setMaterial");
}
Acad::ErrorStatus AcDbEntity::getMaterialMapper(AcGiMapper&) const {
  return NotServed(L"AcDbEntity.getMaterialMapper");
}
Acad::ErrorStatus AcDbEntity::setMaterialMapper(const AcGiMapper&, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setMaterialMapper");
}
Acad::ErrorStatus AcDbEntity::setLinetypeScale(double, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setLinetypeScale");
}
Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setVisibility");
}
Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight, Adesk::Boolean) {
  return NotServed(L"AcDbEntity.setLineWeight");
}
AcDb::CollisionType AcDbEntity::collisionType() const {
  return NotServed(L"AcDbEntity.collisionType");
}
bool AcDbEntity::castShadows() const { return NotServed(L"AcDbEntity.castShadows"); }
void AcDbEntity::setCastShadows(bool) { NotServed(L"AcDbEntity.setCastShadows"); }
bool AcDbEntity::receiveShadows() const { return NotServed(L"AcDbEntity.receiveShadows"); }
void AcDbEntity::setReceiveShadows(bool) { NotServed(L"AcDbEntity.setReceiveShadows"); }
Adesk::Boolean AcDbEntity::isPlanar() const { return NotServed(L"AcDbEntity.isPlanar"); }
Acad::ErrorStatus AcDbEntity::getPlane(AcGePlane&, AcDb::Planarity&) const {
  return NotServed(L"AcDbEntity.getPlane");
}
void AcDbEntity::getEcs(AcGeMatrix3d&) const { NotServed(L"AcDbEntity.getEcs"); }
Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents&) const {
  return NotServed(L"AcDbEntity.getGeomExtents");
}
Acad::ErrorStatus AcDbEntity::addSubentPaths(const AcDbFullSubentPathArray&) {
  return NotServed(L"AcDbEntity.addSubentPaths");
}
Acad::ErrorStatus AcDbEntity::deleteSubentPaths(const AcDbFullSubentPathArray&) {
  return NotServed(L"AcDbEntity.deleteSubentPaths");
}
Acad::ErrorStatus AcDbEntity::getSubentClassId(const AcDbFullSubentPath&, CLSID*) const {
  return NotServed(L"AcDbEntity.getSubentClassId");
}
Acad::ErrorStatus AcDbEntity::transformSubentPathsBy(const AcDbFullSubentPathArray&,
                                                     const AcGeMatrix3d&) {
  return NotServed(L"AcDbEntity.transformSubentPathsBy");
}
Acad::ErrorStatus AcDbEntity::getGripPointsAtSubentPath(const AcDbFullSubentPath&,
                                                        AcDbGripDataPtrArray&, const double,
                                                        const int, const AcGeVector3d&,
                                                        const int) const {
  return NotServed(L"AcDbEntity.getGripPointsAtSubentPath");
}
Acad::ErrorStatus AcDbEntity::moveGripPointsAtSubentPaths(const AcDbFullSubentPathArray&,
                                                          const AcDbVoidPtrArray&,
                                                          const AcGeVector3d&, const int) {
  return NotServed(L"AcDbEntity.moveGripPointsAtSubentPaths");
}
Acad::ErrorStatus AcDbEntity::getSubentPathGeomExtents(const AcDbFullSubentPath&,
                                                       AcDbExtents&) const {
  return NotServed(L"AcDbEntity.getSubentPathGeomExtents");
}
Acad::ErrorStatus AcDbEntity::getSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker,
                                                       const AcGePoint3d&, const AcGeMatrix3d&,
                                                       int&, AcDbFullSubentPath*&, int,
                                                       AcDbObjectId*) const {
  return NotServed(L"AcDbEntity.getSubentPathsAtGsMarker");
}
Acad::ErrorStatus AcDbEntity::getSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker,
                                                       const AcGePoint3d&, const AcGeFastTransform&,
                                                       int&, AcDbFullSubentPath*&, int,
                                                       AcDbObjectId*) const {
  return NotServed(L"AcDbEntity.getSubentPathsAtGsMarker");
}
Acad::ErrorStatus AcDbEntity::getGsMarkersAtSubentPath(const AcDbFullSubentPath&,
                                                       AcArray<Adesk::GsMarker>&) const {
  return NotServed(L"AcDbEntity.getGsMarkersAtSubentPath");
}
Acad::ErrorStatus AcDbEntity::highlight(const AcDbFullSubentPath&, const Adesk::Boolean) const {
  return NotServed(L"AcDbEntity.highlight");
}
Acad::ErrorStatus AcDbEntity::unhighlight(const AcDbFullSubentPath&, const Adesk::Boolean) const {
  return NotServed(L"AcDbEntity.unhighlight");
}
AcDbEntity* AcDbEntity::subentPtr(const AcDbFullSubentPath&) const {
  return NotServed(L"AcDbEntity.subentPtr");
}
Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                             const AcGePoint3d&, const AcGeMatrix3d&,
                                             AcGePoint3dArray&, AcDbIntArray&) const {
  return NotServed(L"AcDbEntity.getOsnapPoints");
}
Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                             const AcGePoint3d&, const AcGeFastTransform&,
                                             AcGePoint3dArray&, AcDbIntArray&) const {
  return NotServed(L"AcDbEntity.getOsnapPoints");
}
Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                             const AcGePoint3d&, const AcGeMatrix3d&,
                                             AcGePoint3dArray&, AcDbIntArray&,
                                             const AcGeMatrix3d&) const {
  return NotServed(L"AcDbEntity.getOsnapPoints");
}
Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                             const AcGePoint3d&, const AcGeFastTransform&,
                                             AcGePoint3dArray&, AcDbIntArray&,
                                             const AcGeMatrix3d&) const {
  return NotServed(L"AcDbEntity.getOsnapPoints");
}
Acad::ErrorStatus AcDbEntity::getGripPoints(AcGePoint3dArray&, AcDbIntArray&, AcDbIntArray&) const {
  return NotServed(L"AcDbEntity.getGripPoints");
}
Acad::ErrorStatus AcDbEntity::getGripPoints(AcDbGripDataPtrArray&, const double, const int,
                                            const AcGeVector3d&, const int) const {
  return NotServed(L"AcDbEntity.getGripPoints");
}
Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbIntArray&, const AcGeVector3d&) {
  return NotServed(L"AcDbEntity.moveGripPointsAt");
}
Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbVoidPtrArray&, const AcGeVector3d&,
                                               const int) {
  return NotServed(L"AcDbEntity.moveGripPointsAt");
}
Acad::ErrorStatus AcDbEntity::getStretchPoints(AcGePoint3dArray&) const {
  return NotServed(L"AcDbEntity.getStretchPoints");
}
Acad::ErrorStatus AcDbEntity::moveStretchPointsAt(const AcDbIntArray&, const AcGeVector3d&) {
  return NotServed(L"AcDbEntity.moveStretchPointsAt");
}
Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&,
                                            Adesk::GsMarker, Adesk::GsMarker) const {
  return NotServed(L"AcDbEntity.intersectWith");
}
Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, const AcGePlane&,
                                            AcGePoint3dArray&, Adesk::GsMarker,
                                            Adesk::GsMarker) const {
  return NotServed(L"AcDbEntity.intersectWith");
}
void AcDbEntity::list() const { NotServed(L"AcDbEntity.list"); }
Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d&) {
  return NotServed(L"AcDbEntity.transformBy");
}
Acad::ErrorStatus AcDbEntity::transformBy(const AcGeFastTransform&) {
  return NotServed(L"AcDbEntity.transformBy");
}
Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d&, AcDbEntity*&) const {
  return NotServed(L"AcDbEntity.getTransformedCopy");
}
Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray&) const {
  return NotServed(L"AcDbEntity.explode");
}
void AcDbEntity::saveAs(AcGiWorldDraw*, AcDb::SaveType) { NotServed(L"AcDbEntity.saveAs"); }
Acad::ErrorStatus AcDbEntity::getCompoundObjectTransform(AcGeMatrix3d&) const {
  return NotServed(L"AcDbEntity.getCompoundObjectTransform");
}
void AcDbEntity::subSetDatabaseDefaults(AcDbDatabase*) {
  NotServed(L"AcDbEntity.subSetDatabaseDefaults");
}
Adesk::Boolean AcDbEntity::cloneMeForDragging() {
  return NotServed(L"AcDbEntity.cloneMeForDragging");
}
bool AcDbEntity::hideMeForDragging() const { return NotServed(L"AcDbEntity.hideMeForDragging"); }
void AcDbEntity::dragStatus(const AcDb::DragStat) { NotServed(L"AcDbEntity.dragStatus"); }
void AcDbEntity::gripStatus(const AcDb::GripStat) { NotServed(L"AcDbEntity.gripStatus"); }
void AcDbEntity::subentGripStatus(const AcDb::GripStat, const AcDbFullSubentPath&) {
  NotServed(L"AcDbEntity.subentGripStatus");
}
Acad::ErrorStatus AcDbEntity::getGripEntityUCS(const void*, AcGeVector3d&, AcGePoint3d&,
                                               AcGeVector3d&) const {
  return NotServed(L"AcDbEntity.getGripEntityUCS");
}

Adesk::UInt32 AcDbText::setAttributes(AcGiDrawableTraits*) {
  return NotServed(L"AcDbText.setAttributes");
}
Acad::ErrorStatus AcDbText::getClassID(CLSID*) const { return NotServed(L"AcDbText.getClassID"); }
Acad::ErrorStatus AcDbText::setField(const ACHAR*, AcDbField*, AcDbObjectId&) {
  return NotServed(L"AcDbText.setField");
}
Acad::ErrorStatus AcDbText::removeField(const ACHAR*) { return NotServed(L"AcDbText.removeField"); }
Acad::ErrorStatus AcDbText::removeField(const ACHAR*, AcDbObjectId&) {
  return NotServed(L"AcDbText.removeField");
}
Acad::ErrorStatus AcDbText::removeField(AcDbObjectId) { return NotServed(L"AcDbText.removeField"); }
bool AcDbText::castShadows() const { return NotServed(L"AcDbText.castShadows"); }
bool AcDbText::receiveShadows() const { return NotServed(L"AcDbText.receiveShadows"); }
Adesk::Boolean AcDbText::isPlanar() const { return NotServed(L"AcDbText.isPlanar"); }
Acad::ErrorStatus AcDbText::getPlane(AcGePlane&, AcDb::Planarity&) const {
  return NotServed(L"AcDbText.getPlane");
}

Acad::ErrorStatus AcDbAttribute::getClassID(CLSID*) const {
  return NotServed(L"AcDbAttribute.getClassID");
}

Adesk::Boolean AcDbGraph::findCycles(AcDbGraphNode*) { return NotServed(L"AcDbGraph.findCycles"); }

Adesk::Boolean AcDbXrefGraph::findCycles(AcDbGraphNode*) {
  return NotServed(L"AcDbXrefGraph.findCycles");
}
