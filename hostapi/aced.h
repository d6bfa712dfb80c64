#pragma once

#include <windows.h>

#include "accmd.h"
#include "dbmain.h"
#include "rxevent.h"

/// Events of the drawing editor. The bodies here do nothing.
class AcEditorReactor : public AcRxEventReactor {
 public:
  ACRX_DECLARE_MEMBERS(AcEditorReactor)
  AcEditorReactor() : mVeto(0) {}

  void dwgFileOpened(AcDbDatabase*, ACHAR*) override;
  void initialDwgFileOpenComplete(AcDbDatabase*) override;
  void databaseConstructed(AcDbDatabase*) override;
  void databaseToBeDestroyed(AcDbDatabase*) override;
  void beginSave(AcDbDatabase*, const ACHAR*) override;
  void saveComplete(AcDbDatabase*, const ACHAR*) override;
  void abortSave(AcDbDatabase*) override;
  void beginDxfIn(AcDbDatabase*) override;
  void abortDxfIn(AcDbDatabase*) override;
  void dxfInComplete(AcDbDatabase*) override;
  void beginDxfOut(AcDbDatabase*) override;
  void abortDxfOut(AcDbDatabase*) override;
  void dxfOutComplete(AcDbDatabase*) override;
  void beginInsert(AcDbDatabase*, const AcGeMatrix3d&, AcDbDatabase*) override;
  void beginInsert(AcDbDatabase*, const ACHAR*, AcDbDatabase*) override;
  void otherInsert(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) override;
  void abortInsert(AcDbDatabase*) override;
  void endInsert(AcDbDatabase*) override;
  void wblockNotice(AcDbDatabase*) override;
  void beginWblock(AcDbDatabase*, AcDbDatabase*) override;
  void beginWblock(AcDbDatabase*, AcDbDatabase*, AcDbObjectId) override;
  void beginWblock(AcDbDatabase*, AcDbDatabase*, const AcGePoint3d*&) override;
  void otherWblock(AcDbDatabase*, AcDbIdMapping&, AcDbDatabase*) override;
  void abortWblock(AcDbDatabase*) override;
  void endWblock(AcDbDatabase*) override;
  void beginWblockObjects(AcDbDatabase*, AcDbIdMapping&) override;
  void beginDeepClone(AcDbDatabase*, AcDbIdMapping&) override;
  void beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus*) override;
  void abortDeepClone(AcDbIdMapping&) override;
  void endDeepClone(AcDbIdMapping&) override;
  void partialOpenNotice(AcDbDatabase*) override;
  void beginAttach(AcDbDatabase*, const ACHAR*, AcDbDatabase*) override;
  void otherAttach(AcDbDatabase*, AcDbDatabase*) override;
  void abortAttach(AcDbDatabase*) override;
  void endAttach(AcDbDatabase*) override;
  void redirected(AcDbObjectId, AcDbObjectId) override;
  void comandeered(AcDbDatabase*, AcDbObjectId, AcDbDatabase*) override;
  void beginRestore(AcDbDatabase*, const ACHAR*, AcDbDatabase*) override;
  void abortRestore(AcDbDatabase*) override;
  void endRestore(AcDbDatabase*) override;
  virtual void unknownCommand(const ACHAR*, AcDbVoidPtrArray*);
  virtual void commandWillStart(const ACHAR*);
  virtual void commandEnded(const ACHAR*);
  virtual void commandCancelled(const ACHAR*);
  virtual void commandFailed(const ACHAR*);
  virtual void lispWillStart(const ACHAR*);
  virtual void lispEnded();
  virtual void lispCancelled();
  virtual void beginClose(AcDbDatabase*);
  virtual void beginDwgOpen(ACHAR*);
  virtual void endDwgOpen(const ACHAR*, AcDbDatabase*);
  virtual void sysVarChanged(const ACHAR*, Adesk::Boolean);
  virtual void sysVarWillChange(const ACHAR*);
  virtual void xrefSubcommandBindItem(AcDbDatabase*, int, AcDbObjectId);
  virtual void xrefSubcommandAttachItem(AcDbDatabase*, int, const ACHAR*);
  virtual void xrefSubcommandOverlayItem(AcDbDatabase*, int, const ACHAR*);
  virtual void xrefSubcommandDetachItem(AcDbDatabase*, int, AcDbObjectId);
  virtual void xrefSubcommandPathItem(int, AcDbObjectId, const ACHAR*);
  virtual void xrefSubcommandReloadItem(AcDbDatabase*, int, AcDbObjectId);
  virtual void xrefSubcommandUnloadItem(AcDbDatabase*, int, AcDbObjectId);
  virtual void undoSubcommandAuto(int, Adesk::Boolean);
  virtual void undoSubcommandControl(int, int);
  virtual void undoSubcommandBegin(int);
  virtual void undoSubcommandEnd(int);
  virtual void undoSubcommandMark(int);
  virtual void undoSubcommandBack(int);
  virtual void undoSubcommandNumber(int, int);
  virtual void pickfirstModified();
  virtual void layoutSwitched(const ACHAR*);
  virtual void docFrameMovedOrResized(Adesk::LongPtr, bool);
  virtual void mainFrameMovedOrResized(Adesk::LongPtr, bool);
  virtual void beginDoubleClick(const AcGePoint3d&);
  virtual void beginRightClick(const AcGePoint3d&);
  virtual void toolbarBitmapSizeWillChange(Adesk::Boolean);
  virtual void toolbarBitmapSizeChanged(Adesk::Boolean);
  virtual void objectsLazyLoaded(const AcDbObjectIdArray&);
  virtual void beginQuit();
  virtual void quitAborted();
  virtual void quitWillStart();
  virtual void modelessOperationWillStart(const ACHAR*);
  virtual void modelessOperationEnded(const ACHAR*);
  virtual void cmdIUnkModified(const ACHAR*);
  virtual Acad::ErrorStatus xrefSubCommandStart(AcXrefSubCommand, const AcDbObjectIdArray&,
                                                const ACHAR* const*, const ACHAR* const*);
  virtual void preXrefLockFile(AcDbObjectId);
  virtual void viewChanged();

  // The editor's own forms stand beside the database's. Behind the table: a name's first mention
  // decides its place there.
  using AcRxEventReactor::preXrefLockFile;
  using AcRxEventReactor::xrefSubCommandStart;

 private:
  [[maybe_unused]] Adesk::UInt8 mVeto;
};

/// The drawing editor: "AcEditor" in `acrxSysRegistry`.
class AcEditor : public AcRxEvent {
 public:
  ACRX_DECLARE_MEMBERS(AcEditor)

  void addReactor(AcRxEventReactor*) override = 0;
  void removeReactor(AcRxEventReactor*) override = 0;
};

/// An application's entries in a right-click menu of the host.
class AcEdUIContext : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEdUIContext)

  /// Gives the address of an HMENU whose items the host shows for the entities `ids`, or null.
  virtual void* getMenuContext(const AcRxClass* pClass, const AcDbObjectIdArray& ids) = 0;
  /// The same where parts of entities are picked as well.
  virtual void* getMenuContext(
      const AcRxClass* pClass, const AcDbObjectIdArray& ids,
      const AcArray<AcDbFullSubentPathArray, AcArrayObjectCopyReallocator<AcDbFullSubentPathArray>>&
          subentIds);
  /// The item with the command id `command` was chosen.
  virtual void onCommand(Adesk::UInt32 command) = 0;
  /// Called before the menu is shown.
  virtual void OnUpdateMenu();
};

/// Offers `pContext` for entities of the class; it stays the application's. False if it is there.
Adesk::Boolean acedAddObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext,
                                        const void* appId);
Adesk::Boolean acedRemoveObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext);
