#include "ui/XRefContext.h"

#include <acdocman.h>

#include "foundation/Border.h"
#include "foundation/CommandNames.h"
#include "foundation/CommandText.h"
#include "foundation/ComScope.h"
#include "foundation/FormatText.h"
#include "xref/XrefInfo.h"
#include "xref/XrefPaths.h"

namespace tessaro {

namespace {

enum MenuId : UINT { checkOutId = 1, checkInId, editId, propertiesId, firstVersionId = 10 };

void removeItems(HMENU menu) {
  while (GetMenuItemCount(menu) > 0) RemoveMenu(menu, 0, MF_BYPOSITION);
}

/// Escapes a text for a menu, where "&" marks a mnemonic, a tab starts a column and a line end is
/// shown as a box.
CString menuText(const CString& text) {
  CString shown;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] == L'\r' && at + 1 < text.size() && text[at + 1] == L'\n') continue;
    if (text[at] == L'&') shown += L'&';
    shown += text[at] < L' ' ? L' ' : text[at];
  }
  return shown;
}

CString versionItem(const VersionEntry& entry) {
  const int version = entry.version;
  if (version == 1) return formatText(loadMessage(messages::menuFirstVersion), {version});
  if (!entry.comment.empty()) {
    return formatText(loadMessage(messages::menuVersion), {version, menuText(entry.comment)});
  }
  return formatText(loadMessage(messages::menuVersionWithoutComment), {version});
}

}  // namespace

void XrefMenuFlags::fold(CheckOutState state) {
  switch (state) {
    case CheckOutState::checkedOutHere:
      canCheckOut = false;
      break;
    case CheckOutState::checkedOutElsewhere:
      canCheckOut = false;
      checkInGrayed = true;
      break;
    case CheckOutState::notCheckedOut:
      canCheckIn = false;
      break;
    case CheckOutState::notInVault:
      canCheckIn = canCheckOut = inVault = false;
      break;
  }
}

XRefContext::XRefContext(AppContext& app)
    : app(app), menu(CreatePopupMenu()), versionMenu(CreatePopupMenu()) {}

XRefContext::~XRefContext() {
  // Detaches the version menu, which would be destroyed with the other one.
  removeItems(menu);
  for (HMENU made : {menu, versionMenu}) {
    if (made != nullptr) DestroyMenu(made);
  }
}

void* XRefContext::getMenuContext(const AcRxClass*, const AcDbObjectIdArray& ids) {
  return atBorder(static_cast<void*>(nullptr), [&] { return buildMenu(ids); });
}

void* XRefContext::buildMenu(const AcDbObjectIdArray& ids) {
  // The creation may have failed at the module's start.
  if (menu == nullptr) menu = CreatePopupMenu();
  if (versionMenu == nullptr) versionMenu = CreatePopupMenu();
  if (menu == nullptr) return nullptr;
  removeItems(menu);
  const bool single = ids.length() == 1;
  XrefMenuFlags flags;
  std::vector<VersionEntry> versions;
  if (!readSelection(ids, flags, single ? &versions : nullptr)) return nullptr;

  addCheckOutEntry(flags);
  if (single && flags.inVault) {
    append(editId, messages::menuEdit);
    addVersionMenu(versions);
    append(propertiesId, messages::menuProperties);
  }
  return &menu;
}

/// @return false if a selected reference is no xref
bool XRefContext::readSelection(const AcDbObjectIdArray& ids, XrefMenuFlags& flags,
                                std::vector<VersionEntry>* versions) {
  const ComScope com;
  for (int index = 0; index < ids.length(); ++index) {
    XrefInfo xref;
    if (!readXrefReference(ids[index], xref)) return false;
    makeAbsolute(xref.path);
    flags.fold(readCheckOutStateOrReport(app, xref.path, versions));
  }
  return true;
}

void XRefContext::addCheckOutEntry(const XrefMenuFlags& flags) {
  if (!flags.inVault) return;
  if (flags.canCheckIn) {
    append(checkInId, messages::menuCheckIn,
           MF_STRING | (flags.checkInGrayed ? MF_GRAYED : MF_ENABLED));
  } else if (flags.canCheckOut) {
    append(checkOutId, messages::menuCheckOut);
  }
}

void XRefContext::addVersionMenu(const std::vector<VersionEntry>& versions) {
  removeItems(versionMenu);
  for (auto entry = versions.rbegin(); entry != versions.rend(); ++entry) {
    AppendMenuW(versionMenu, MF_STRING, entry->version + firstVersionId,
                versionItem(*entry).c_str());
  }
  AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(versionMenu),
              loadMessage(messages::menuGetVersion));
}

void XRefContext::append(UINT id, const Message& message, UINT flags) {
  AppendMenuW(menu, flags, id, loadMessage(message));
}

void XRefContext::onCommand(Adesk::UInt32 id) {
  atBorder([this, id] { sendCommand(id); });
}

void XRefContext::sendCommand(Adesk::UInt32 id) {
  CString command;
  switch (id) {
    case checkOutId:
      command = commands::lockXref;
      break;
    case checkInId:
      command = commands::unlockXref;
      break;
    case editId:
      command = commands::editXref;
      break;
    case propertiesId:
      command = commands::properties;
      break;
    default:
      if (id < firstVersionId) return;
      command =
          formatText(L"%s %d", {commands::getXrefVer2, static_cast<int>(id - firstVersionId)});
      break;
  }
  sendToCommandLine(acDocManagerPtr()->mdiActiveDocument(), commandText(app, command));
}

}  // namespace tessaro
