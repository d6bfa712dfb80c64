#pragma once

#include <windows.h>

#include "acarray.h"
#include "accmd.h"
#include "acedads.h"
#include "dbidar.h"
#include "rxevent.h"

class AcDbFullSubentPath;
typedef AcArray<AcDbFullSubentPath> AcDbFullSubentPathArray;

/// Events of the drawing editor.
class AcEditorReactor : public AcRxEventReactor {
 public:
  ACRX_DECLARE_MEMBERS(AcEditorReactor)
};

/// The drawing editor: "AcEditor" in `acrxSysRegistry`.
class AcEditor : public AcRxEvent {
 public:
  ACRX_DECLARE_MEMBERS(AcEditor)
};

/// An application's entries in a right-click menu of the host.
class AcEdUIContext : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEdUIContext)

  /// Gives the address of an HMENU whose items the host shows for the entities `ids`, or null.
  virtual void* getMenuContext(const AcRxClass* pClass, const AcDbObjectIdArray& ids) = 0;
  virtual void* getMenuContext(const AcRxClass* pClass, const AcDbObjectIdArray& ids,
                               const AcDbFullSubentPathArray& subentIds);
  /// The item with the command id `command` was chosen.
  virtual void onCommand(Adesk::UInt32 command) = 0;
  /// Called before the menu is shown.
  virtual void OnUpdateMenu();
};

/// Offers `pContext` for entities of the class; it stays the application's. False if it is there.
Adesk::Boolean acedAddObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext,
                                        const void* appId);
Adesk::Boolean acedRemoveObjectContextMenu(const AcRxClass* pClass, AcEdUIContext* pContext);

/// The host's main window.
extern "C" HWND adsw_acadMainWnd();
