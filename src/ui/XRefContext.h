#pragma once

#include <aced.h>

#include <windows.h>

#include <vector>

#include "foundation/AppContext.h"
#include "vault/CheckOutState.h"
#include "vault/Messages.h"

namespace tessaro {

/// Which entries the menu has. Each selected xref can remove some of them.
struct XrefMenuFlags {
  bool canCheckIn = true;
  bool canCheckOut = true;
  bool inVault = true;
  bool checkInGrayed = false;

  /// Removes the entries that a selected xref of this state doesn't allow.
  void fold(CheckOutState state);
};

/// The vault's entries in the host's right-click menu for block references. A chosen entry sends a
/// command to the host, which works on the same selection.
class XRefContext : public AcEdUIContext {
 public:
  explicit XRefContext(AppContext& app);
  XRefContext(const XRefContext&) = delete;
  XRefContext& operator=(const XRefContext&) = delete;
  ~XRefContext() override;

  /// Builds the menu for a selection.
  /// @return the address of the HMENU; null if the selection has objects that are no xrefs
  void* getMenuContext(const AcRxClass* pClass, const AcDbObjectIdArray& ids) override;
  void onCommand(Adesk::UInt32 id) override;
  void OnUpdateMenu() override {}

 private:
  void* buildMenu(const AcDbObjectIdArray& ids);
  void sendCommand(Adesk::UInt32 id);
  bool readSelection(const AcDbObjectIdArray& ids, XrefMenuFlags& flags,
                     std::vector<VersionEntry>* versions);
  void addCheckOutEntry(const XrefMenuFlags& flags);
  void addVersionMenu(const std::vector<VersionEntry>& versions);
  void append(UINT id, const Message& message, UINT flags = MF_STRING);

  AppContext& app;
  HMENU menu;
  HMENU versionMenu;
};

}  // namespace tessaro
