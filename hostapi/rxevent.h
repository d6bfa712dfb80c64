#pragma once

#include "acarray.h"
#include "rxobject.h"

class AcDbDatabase;
class AcDbIdMapping;
class AcDbObjectId;
class AcGeMatrix3d;
class AcGePoint3d;

/// Which of the operations on xrefs the user has begun.
enum AcXrefSubCommand : int;

/// Events of the database's life. The bodies here do nothing.
class AcRxEventReactor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxEventReactor)

  virtual void dwgFileOpened(AcDbDatabase*, ACHAR*);
  virtual void initialDwgFileOpenComplete(AcDbDatabase*);
  virtual void databaseConstructed(AcDbDatabase*);
  virtual void databaseToBeDestroyed(AcDbDatabase*);
  /// A drawing is about to be written, as `pIntendedName`.
  virtual void beginSave(AcDbDatabase* database, const ACHAR* pIntendedName);
  /// A drawing was written, as `pActualName`.
  virtual void saveComplete(AcDbDatabase* database, const ACHAR* pActualName);
  virtual void abortSave(AcDbDatabase*);
  virtual void beginDxfIn(AcDbDatabase*);
  virtual void abortDxfIn(AcDbDatabase*);
  virtual void dxfInComplete(AcDbDatabase*);
  virtual void beginDxfOut(AcDbDatabase*);
  virtual void abortDxfOut(AcDbDatabase*);
  virtual void dxfOutComplete(AcDbDatabase*);
  virtual void beginInsert(AcDbDatabase*, const ACHAR*, AcDbDatabase*);
  virtual void beginInsert(AcDbDatabase*, const AcGeMatrix3d&, AcDbDatabase*);
  virtual void otherInsert(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*);
  virtual void abortInsert(AcDbDatabase*);
  virtual void endInsert(AcDbDatabase*);
  virtual void wblockNotice(AcDbDatabase*);
  virtual void beginWblock(AcDbDatabase*, AcDbDatabase*, const AcGePoint3d*&);
  virtual void beginWblock(AcDbDatabase*, AcDbDatabase*, AcDbObjectId);
  virtual void beginWblock(AcDbDatabase*, AcDbDatabase*);
  virtual void otherWblock(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*);
  virtual void abortWblock(AcDbDatabase*);
  virtual void endWblock(AcDbDatabase*);
  virtual void beginWblockObjects(AcDbDatabase*, AcDbIdMapping&);
  virtual void beginDeepClone(AcDbDatabase*, AcDbIdMapping&);
  virtual void beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus*);
  virtual void abortDeepClone(AcDbIdMapping&);
  virtual void endDeepClone(AcDbIdMapping&);
  virtual void partialOpenNotice(AcDbDatabase*);
  virtual void beginAttach(AcDbDatabase*, const ACHAR*, AcDbDatabase*);
  virtual void otherAttach(AcDbDatabase*, AcDbDatabase*);
  virtual void abortAttach(AcDbDatabase*);
  virtual void endAttach(AcDbDatabase*);
  virtual void redirected(AcDbObjectId, AcDbObjectId);
  virtual void comandeered(AcDbDatabase*, AcDbObjectId, AcDbDatabase*);
  virtual void beginRestore(AcDbDatabase*, const ACHAR*, AcDbDatabase*);
  virtual void abortRestore(AcDbDatabase*);
  virtual void endRestore(AcDbDatabase*);
  virtual void xrefSubCommandStart(AcDbDatabase*, AcXrefSubCommand, const AcArray<AcDbObjectId>&,
                                   const ACHAR* const*, const ACHAR* const*, bool&);
  virtual void xrefSubCommandAborted(AcDbDatabase*, AcXrefSubCommand, const AcArray<AcDbObjectId>&,
                                     const ACHAR* const*, const ACHAR* const*);
  virtual void preXrefLockFile(AcDbDatabase*, AcDbObjectId);
};

/// The source of those events.
class AcRxEvent : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxEvent)

  virtual void addReactor(AcRxEventReactor*) = 0;
  virtual void removeReactor(AcRxEventReactor*) = 0;
};
