#pragma once

#include <aced.h>

#include <windows.h>

#include <vector>

#include "foundation/AppContext.h"
#include "vault/OpenVaultFile.h"

namespace tessaro {

/// What the check-out states of all selected xrefs leave of the menu's first entry: each xref has
/// a veto.
struct XrefMenuFlags {
  bool canCheckIn = true;
  bool canCheckOut = true;
  bool inVault = true;
  bool checkInGrayed = false;

  void fold(CheckOutState state);
};

/// The vault's entries in the host's right-click menu for block references. A chosen entry sends a
/// command to the host, which works on the selection that is still active.
class XRefContext : public AcEdUIContext {
 public:
  explicit XRefContext(AppContext& app);
  XRefContext(const XRefContext&) = delete;
  XRefContext& operator=(const XRefContext&) = delete;
  ~XRefContext() override;

  /// Builds the menu for a selection; null if it isn't made of xrefs alone.
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
  void append(UINT id, int message, const char* text, UINT flags = MF_STRING);

  AppContext& app;
  HMENU menu;
  HMENU versionMenu;
};

}  // namespace tessaro
