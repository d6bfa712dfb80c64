#pragma once

#include "acadstrc.h"
#include "adesk.h"
#include "adsdef.h"
#include "dbid.h"
#include "dbidar.h"
#include "rxobject.h"

class AcDbBlockTable;
class AcDbObjectImp;
class AcDbDatabaseImp;

/// Constants of the drawing database.
struct AcDb {
  /// What an object is opened for. Any number of readers, or one writer.
  enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
};

/// An object of a drawing database. Its operations need it open, for read or for write; whoever
/// opened it closes it, once for each opening.
class AcDbObject : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObject)
  ~AcDbObject() override;

  AcDbObjectId objectId() const;
  /// The object that holds this one: the block table record of an entity, the block reference of
  /// an attribute.
  AcDbObjectId ownerId() const;
  /// Ends one opening. The pointer isn't to be used afterwards.
  Acad::ErrorStatus close();

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

 protected:
  AcDbEntity();
  friend class AcDbObjectImp;
};

/// Walks over the objects that another one owns. Whoever asked for it deletes it.
class AcDbObjectIterator : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObjectIterator)
  ~AcDbObjectIterator() override;

  /// Goes to the first object, or to the last one, that isn't erased.
  virtual void start(bool atEnd = false) = 0;
  virtual bool done() const = 0;
  virtual void step(bool backwards = false, bool skipDeleted = true) = 0;
  /// The id at this position; a null id if `done`.
  virtual AcDbObjectId objectId() const = 0;

 protected:
  AcDbObjectIterator();
};

/// One drawing in memory.
class AcDbDatabase : public AcRxObject {
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

/// Opens an object of the class `T`.
template <class T>
inline Acad::ErrorStatus acdbOpenObject(T*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                        bool openErased = false) {
  AcDbObject* opened = nullptr;
  const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, T::desc(), openErased);
  pObj = status == Acad::eOk ? static_cast<T*>(opened) : nullptr;
  return status;
}

/// The id of an entity that a selection gave by name.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName);
