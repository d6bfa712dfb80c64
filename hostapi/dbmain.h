#pragma once

#include "acadstrc.h"
#include "acdb.h"
#include "acedads.h"
#include "adesk.h"
#include "adsdef.h"
#include "dbid.h"
#include "dbidar.h"
#include "rxdlinkr.h"

class AcCmColor;
class AcCmTransparency;
class AcDbAuditInfo;
class AcDbBlockTable;
class AcDbDatabase;
class AcDbDatabaseImp;
class AcDbDwgFiler;
class AcDbDxfFiler;
class AcDbEntity;
class AcDbExtents;
class AcDbField;
class AcDbFullSubentPath;
class AcDbGripData;
class AcDbIdMapping;
class AcDbObject;
class AcDbObjectImp;
class AcDbSpaceIterator;
class AcGeFastTransform;
class AcGeMatrix3d;
class AcGePlane;
class AcGePoint3d;
class AcGeVector3d;
class AcGiDrawableTraits;
class AcGiMapper;
class AcGiViewportDraw;
class AcGiWorldDraw;
class AcGsNode;
// Windows' own, without windows.h.
typedef struct _GUID CLSID;

typedef AcArray<AcGePoint3d> AcGePoint3dArray;
typedef AcArray<int> AcDbIntArray;
typedef AcArray<void*> AcDbVoidPtrArray;
typedef AcArray<AcDbGripData*> AcDbGripDataPtrArray;
typedef AcArray<AcDbFullSubentPath, AcArrayObjectCopyReallocator<AcDbFullSubentPath>>
    AcDbFullSubentPathArray;

/// Base of what the host allocates from its own heap. Nobody else makes or frees such an object,
/// but through its virtual destructor.
class AcHeapOperators {};

/// What can be drawn.
class AcGiDrawable : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcGiDrawable)

  enum DrawableType : int;

  virtual Adesk::UInt32 setAttributes(AcGiDrawableTraits*) = 0;
  virtual Adesk::Boolean worldDraw(AcGiWorldDraw*) = 0;
  virtual void viewportDraw(AcGiViewportDraw*) = 0;
  virtual Adesk::Boolean isPersistent() const = 0;
  virtual AcDbObjectId id() const = 0;
  virtual DrawableType drawableType() const;
  virtual void setGsNode(AcGsNode*) = 0;
  virtual AcGsNode* gsNode() const = 0;
  virtual Adesk::UInt32 viewportDrawLogicalFlags(AcGiViewportDraw*);
  virtual Adesk::Boolean RolloverHit(Adesk::ULongPtr, Adesk::ULongPtr, Adesk::Boolean);

 protected:
  AcGiDrawable();
};

/// An object of a drawing database. Its operations need it open, for read or for write; whoever
/// opened it closes it, once for each opening.
class AcDbObject : public AcGiDrawable, public AcHeapOperators {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObject)
  ~AcDbObject() override;

  AcDbObjectId objectId() const;
  /// The object that holds this one: the block table record of an entity, the block reference of
  /// an attribute.
  AcDbObjectId ownerId() const;
  /// Ends one opening. The pointer isn't to be used afterwards.
  Acad::ErrorStatus close();

  AcRxObject* clone() const override;
  Acad::ErrorStatus copyFrom(const AcRxObject*) override;
  Adesk::UInt32 setAttributes(AcGiDrawableTraits*) override;
  Adesk::Boolean worldDraw(AcGiWorldDraw*) override;
  void viewportDraw(AcGiViewportDraw*) override;
  Adesk::Boolean isPersistent() const override;
  AcDbObjectId id() const override;
  void setGsNode(AcGsNode*) override;
  AcGsNode* gsNode() const override;
  virtual Acad::ErrorStatus setOwnerId(AcDbObjectId);
  virtual Acad::ErrorStatus subOpen(AcDb::OpenMode);
  virtual Acad::ErrorStatus subCancel();
  virtual Acad::ErrorStatus subClose();
  virtual Acad::ErrorStatus subErase(Adesk::Boolean);
  virtual Acad::ErrorStatus subHandOverTo(AcDbObject*);
  virtual Acad::ErrorStatus subSwapIdWith(AcDbObjectId, Adesk::Boolean, Adesk::Boolean);
  virtual Acad::ErrorStatus swapReferences(const AcDbIdMapping&);
  virtual Acad::ErrorStatus audit(AcDbAuditInfo*);
  virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler*);
  virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler*) const;
  virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler*);
  virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler*) const;
  virtual AcDb::DuplicateRecordCloning mergeStyle() const;
  virtual resbuf* xData(const ACHAR*) const;
  virtual Acad::ErrorStatus setXData(const resbuf*);
  virtual Acad::ErrorStatus applyPartialUndo(AcDbDwgFiler*, AcRxClass*);
  virtual void addPersistentReactor(AcDbObjectId);
  virtual Acad::ErrorStatus removePersistentReactor(AcDbObjectId);
  virtual void recvPropagateModify(const AcDbObject*);
  virtual void xmitPropagateModify() const;
  virtual Acad::ErrorStatus deepClone(AcDbObject*, AcDbObject*&, AcDbIdMapping&,
                                      Adesk::Boolean) const;
  virtual Acad::ErrorStatus wblockClone(AcRxObject*, AcDbObject*&, AcDbIdMapping&,
                                        Adesk::Boolean) const;
  virtual void cancelled(const AcDbObject*);
  virtual void copied(const AcDbObject*, const AcDbObject*);
  virtual void erased(const AcDbObject*, Adesk::Boolean);
  virtual void goodbye(const AcDbObject*);
  virtual void openedForModify(const AcDbObject*);
  virtual void modified(const AcDbObject*);
  virtual void subObjModified(const AcDbObject*, const AcDbObject*);
  virtual void modifyUndone(const AcDbObject*);
  virtual void modifiedXData(const AcDbObject*);
  virtual void unappended(const AcDbObject*);
  virtual void reappended(const AcDbObject*);
  virtual void objectClosed(const AcDbObjectId);
  virtual void modifiedGraphics(const AcDbEntity*);
  virtual Acad::ErrorStatus getObjectSaveVersion(const AcDbDwgFiler*, AcDb::AcDbDwgVersion&,
                                                 AcDb::MaintenanceReleaseVersion&);
  virtual Acad::ErrorStatus getObjectSaveVersion(const AcDbDxfFiler*, AcDb::AcDbDwgVersion&,
                                                 AcDb::MaintenanceReleaseVersion&);
  virtual Acad::ErrorStatus decomposeForSave(AcDb::AcDbDwgVersion, AcDbObject*&, AcDbObjectId&,
                                             Adesk::Boolean&);
  virtual AcGiDrawable* drawable();
  virtual Acad::ErrorStatus getClassID(CLSID*) const;
  virtual Acad::ErrorStatus setField(const ACHAR*, AcDbField*, AcDbObjectId&);
  virtual Acad::ErrorStatus removeField(AcDbObjectId);
  virtual Acad::ErrorStatus removeField(const ACHAR*, AcDbObjectId&);
  virtual Acad::ErrorStatus removeField(const ACHAR*);

 protected:
  AcDbObject();

 private:
  friend class AcDbObjectImp;
  AcDbObjectImp* imp = nullptr;
};

/// An object that is drawn.
class AcDbEntity : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbEntity)
  ~AcDbEntity() override;

  Adesk::UInt32 setAttributes(AcGiDrawableTraits*) override;
  Adesk::Boolean worldDraw(AcGiWorldDraw*) override;
  void viewportDraw(AcGiViewportDraw*) override;
  void setGsNode(AcGsNode*) override;
  AcGsNode* gsNode() const override;
  Acad::ErrorStatus audit(AcDbAuditInfo*) override;
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler*) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler*) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler*) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler*) const override;
  Acad::ErrorStatus applyPartialUndo(AcDbDwgFiler*, AcRxClass*) override;
  AcGiDrawable* drawable() override;
  Acad::ErrorStatus getClassID(CLSID*) const override;
  virtual Acad::ErrorStatus setColor(const AcCmColor&, Adesk::Boolean);
  virtual Acad::ErrorStatus setColorIndex(Adesk::UInt16, Adesk::Boolean);
  virtual Acad::ErrorStatus setTransparency(const AcCmTransparency&, Adesk::Boolean);
  virtual Acad::ErrorStatus setPlotStyleName(const ACHAR*, Adesk::Boolean);
  virtual Acad::ErrorStatus setPlotStyleName(AcDb::PlotStyleNameType, AcDbObjectId, Adesk::Boolean);
  virtual Acad::ErrorStatus setLayer(const ACHAR*, Adesk::Boolean, bool);
  virtual Acad::ErrorStatus setLayer(AcDbObjectId, Adesk::Boolean, bool);
  virtual Acad::ErrorStatus setLinetype(const ACHAR*, Adesk::Boolean);
  virtual Acad::ErrorStatus setLinetype(AcDbObjectId, Adesk::Boolean);
  virtual Acad::ErrorStatus setMaterial(const ACHAR*, Adesk::Boolean);
  virtual Acad::ErrorStatus setMaterial(AcDbObjectId, Adesk::Boolean);
  virtual Acad::ErrorStatus getMaterialMapper(AcGiMapper&) const;
  virtual Acad::ErrorStatus setMaterialMapper(const AcGiMapper&, Adesk::Boolean);
  virtual Acad::ErrorStatus setLinetypeScale(double, Adesk::Boolean);
  virtual Acad::ErrorStatus setVisibility(AcDb::Visibility, Adesk::Boolean);
  virtual Acad::ErrorStatus setLineWeight(AcDb::LineWeight, Adesk::Boolean);
  virtual AcDb::CollisionType collisionType() const;
  virtual bool castShadows() const;
  virtual void setCastShadows(bool);
  virtual bool receiveShadows() const;
  virtual void setReceiveShadows(bool);
  virtual Adesk::Boolean isPlanar() const;
  virtual Acad::ErrorStatus getPlane(AcGePlane&, AcDb::Planarity&) const;
  virtual void getEcs(AcGeMatrix3d&) const;
  virtual Acad::ErrorStatus getGeomExtents(AcDbExtents&) const;
  virtual Acad::ErrorStatus addSubentPaths(const AcDbFullSubentPathArray&);
  virtual Acad::ErrorStatus deleteSubentPaths(const AcDbFullSubentPathArray&);
  virtual Acad::ErrorStatus getSubentClassId(const AcDbFullSubentPath&, CLSID*) const;
  virtual Acad::ErrorStatus transformSubentPathsBy(const AcDbFullSubentPathArray&,
                                                   const AcGeMatrix3d&);
  virtual Acad::ErrorStatus getGripPointsAtSubentPath(const AcDbFullSubentPath&,
                                                      AcDbGripDataPtrArray&, const double,
                                                      const int, const AcGeVector3d&,
                                                      const int) const;
  virtual Acad::ErrorStatus moveGripPointsAtSubentPaths(const AcDbFullSubentPathArray&,
                                                        const AcDbVoidPtrArray&,
                                                        const AcGeVector3d&, const int);
  virtual Acad::ErrorStatus getSubentPathGeomExtents(const AcDbFullSubentPath&, AcDbExtents&) const;
  virtual Acad::ErrorStatus getSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker,
                                                     const AcGePoint3d&, const AcGeMatrix3d&, int&,
                                                     AcDbFullSubentPath*&, int,
                                                     AcDbObjectId*) const;
  virtual Acad::ErrorStatus getSubentPathsAtGsMarker(AcDb::SubentType, Adesk::GsMarker,
                                                     const AcGePoint3d&, const AcGeFastTransform&,
                                                     int&, AcDbFullSubentPath*&, int,
                                                     AcDbObjectId*) const;
  virtual Acad::ErrorStatus getGsMarkersAtSubentPath(const AcDbFullSubentPath&,
                                                     AcArray<Adesk::GsMarker>&) const;
  virtual Acad::ErrorStatus highlight(const AcDbFullSubentPath&, const Adesk::Boolean) const;
  virtual Acad::ErrorStatus unhighlight(const AcDbFullSubentPath&, const Adesk::Boolean) const;
  virtual AcDbEntity* subentPtr(const AcDbFullSubentPath&) const;
  virtual Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                           const AcGePoint3d&, const AcGeMatrix3d&,
                                           AcGePoint3dArray&, AcDbIntArray&) const;
  virtual Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                           const AcGePoint3d&, const AcGeFastTransform&,
                                           AcGePoint3dArray&, AcDbIntArray&) const;
  virtual Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                           const AcGePoint3d&, const AcGeMatrix3d&,
                                           AcGePoint3dArray&, AcDbIntArray&,
                                           const AcGeMatrix3d&) const;
  virtual Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode, Adesk::GsMarker, const AcGePoint3d&,
                                           const AcGePoint3d&, const AcGeFastTransform&,
                                           AcGePoint3dArray&, AcDbIntArray&,
                                           const AcGeMatrix3d&) const;
  virtual Acad::ErrorStatus getGripPoints(AcGePoint3dArray&, AcDbIntArray&, AcDbIntArray&) const;
  virtual Acad::ErrorStatus getGripPoints(AcDbGripDataPtrArray&, const double, const int,
                                          const AcGeVector3d&, const int) const;
  virtual Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray&, const AcGeVector3d&);
  virtual Acad::ErrorStatus moveGripPointsAt(const AcDbVoidPtrArray&, const AcGeVector3d&,
                                             const int);
  virtual Acad::ErrorStatus getStretchPoints(AcGePoint3dArray&) const;
  virtual Acad::ErrorStatus moveStretchPointsAt(const AcDbIntArray&, const AcGeVector3d&);
  virtual Acad::ErrorStatus intersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&,
                                          Adesk::GsMarker, Adesk::GsMarker) const;
  virtual Acad::ErrorStatus intersectWith(const AcDbEntity*, AcDb::Intersect, const AcGePlane&,
                                          AcGePoint3dArray&, Adesk::GsMarker,
                                          Adesk::GsMarker) const;
  virtual void list() const;
  virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d&);
  virtual Acad::ErrorStatus transformBy(const AcGeFastTransform&);
  virtual Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d&, AcDbEntity*&) const;
  virtual Acad::ErrorStatus explode(AcDbVoidPtrArray&) const;
  virtual void saveAs(AcGiWorldDraw*, AcDb::SaveType);
  virtual Acad::ErrorStatus getCompoundObjectTransform(AcGeMatrix3d&) const;
  virtual void subSetDatabaseDefaults(AcDbDatabase*);
  virtual Adesk::Boolean cloneMeForDragging();
  virtual bool hideMeForDragging() const;
  virtual void dragStatus(const AcDb::DragStat);
  virtual void gripStatus(const AcDb::GripStat);
  virtual void subentGripStatus(const AcDb::GripStat, const AcDbFullSubentPath&);
  virtual Acad::ErrorStatus getGripEntityUCS(const void*, AcGeVector3d&, AcGePoint3d&,
                                             AcGeVector3d&) const;

 protected:
  AcDbEntity();
  friend class AcDbObjectImp;
};

/// Walks over the objects that another one owns. Whoever asked for it deletes it.
class AcDbObjectIterator : public AcRxObject, public AcHeapOperators {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObjectIterator)
  ~AcDbObjectIterator() override;

  /// Goes to the first object, or to the last one, that isn't erased.
  void start(bool atEnd = false);
  bool done() const;
  void step(bool backwards = false, bool skipDeleted = true);
  /// The id at this position; a null id if `done`.
  AcDbObjectId objectId();

 private:
  friend class AcDbSpaceIterator;
  explicit AcDbObjectIterator(AcDbSpaceIterator* pImpIterator);

  AcDbSpaceIterator* mpImpIterator;
};

/// One drawing in memory.
class AcDbDatabase : public AcRxObject, public AcHeapOperators {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDatabase)
  ~AcDbDatabase() override;

  /// Opens the table of the drawing's block definitions.
  Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode);

 private:
  friend class AcDbDatabaseImp;
  AcDbDatabase();
  AcDbDatabaseImp* imp = nullptr;
};

/// Opens an object. `eWasOpenForRead` and `eWasOpenForWrite` tell that another opening stands in
/// the way, `eWasErased` that the object is erased and `openErased` isn't set, `eLockViolation`
/// that it would be written in a document that isn't locked for it.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
/// The same; `eNotThatKindOfClass`, and nothing open, unless the object is of the class.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                     const AcRxClass* pClass, bool openErased = false);

/// Opens an object of the class `T`; `eNotThatKindOfClass`, and nothing open, for another one.
template <class T>
inline Acad::ErrorStatus acdbOpenObject(T*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                        bool openErased = false) {
  AcDbObject* opened = nullptr;
  Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, openErased);
  pObj = status == Acad::eOk ? T::cast(opened) : nullptr;
  if (status == Acad::eOk && !pObj) {
    opened->close();
    status = Acad::eNotThatKindOfClass;
  }
  return status;
}

/// The id of an entity that a selection gave by name.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName);
