#include "ui/XRefContext.h"

#include <acdocman.h>

#include "foundation/Border.h"
#include "foundation/CommandText.h"
#include "foundation/ComScope.h"
#include "foundation/FormatText.h"
#include "vault/MessageStrings.h"
#include "xref/XrefInfo.h"
#include "xref/XrefPaths.h"

namespace tessaro {

namespace {

enum MenuId : UINT { checkOutId = 1, checkInId, editId, propertiesId, firstVersionId = 10 };

void removeItems(HMENU menu) {
  while (GetMenuItemCount(menu) > 0) RemoveMenu(menu, 0, MF_BYPOSITION);
}

/// A text that a menu shows as it is: "&" marks a mnemonic there, a tab starts a column of its own
/// and a line end would stand as a box.
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
  if (version == 1) return formatText(loadMessage(104, "%d. <Created>"), {version});
  if (!entry.comment.empty()) {
    return formatText(loadMessage(106, "%d. %s"), {version, menuText(entry.comment)});
  }
  return formatText(loadMessage(105, "%d. <No comment>"), {version});
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
    default:
      canCheckIn = canCheckOut = inVault = false;
      break;
  }
}

XRefContext::XRefContext(AppContext& app)
    : app(app), menu(CreatePopupMenu()), versionMenu(CreatePopupMenu()) {}

XRefContext::~XRefContext() {
  // The version menu may hang in the other one, which would destroy it along.
  removeItems(menu);
  for (HMENU made : {menu, versionMenu}) {
    if (made != nullptr) DestroyMenu(made);
  }
}

void* XRefContext::getMenuContext(const AcRxClass*, const AcDbObjectIdArray& ids) {
  return atBorder(static_cast<void*>(nullptr), [&] { return buildMenu(ids); });
}

void* XRefContext::buildMenu(const AcDbObjectIdArray& ids) {
  // Windows may have had none to give at the module's start.
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
    append(editId, 102, "Edit this Xref");
    addVersionMenu(versions);
    append(propertiesId, 107, "Tessaro Properties...");
  }
  return &menu;
}

/// @return false if one of the selected references is no xref.
bool XRefContext::readSelection(const AcDbObjectIdArray& ids, XrefMenuFlags& flags,
                                std::vector<VersionEntry>* versions) {
  const ComScope com;
  for (int index = 0; index < ids.length(); ++index) {
    XrefInfo xref;
    if (!readXrefReference(ids[index], xref)) return false;
    makeAbsolute(xref.path);
    flags.fold(readCheckOutStateOrTell(app, xref.path, versions));
  }
  return true;
}

void XRefContext::addCheckOutEntry(const XrefMenuFlags& flags) {
  if (!flags.inVault) return;
  if (flags.canCheckIn) {
    append(checkInId, 100, "Check in this Xref",
           MF_STRING | (flags.checkInGrayed ? MF_GRAYED : MF_ENABLED));
  } else if (flags.canCheckOut) {
    append(checkOutId, 101, "Check out this Xref");
  }
}

void XRefContext::addVersionMenu(const std::vector<VersionEntry>& versions) {
  removeItems(versionMenu);
  for (auto entry = versions.rbegin(); entry != versions.rend(); ++entry) {
    AppendMenuW(versionMenu, MF_STRING, entry->version + firstVersionId,
                versionItem(*entry).c_str());
  }
  AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(versionMenu),
              loadMessage(103, "Get Version"));
}

void XRefContext::append(UINT id, int message, const char* text, UINT flags) {
  AppendMenuW(menu, flags, id, loadMessage(message, text));
}

void XRefContext::onCommand(Adesk::UInt32 id) {
  atBorder([this, id] { sendCommand(id); });
}

void XRefContext::sendCommand(Adesk::UInt32 id) {
  CString command;
  switch (id) {
    case checkOutId:
      command = L"lockxref";
      break;
    case checkInId:
      command = L"unlockxref";
      break;
    case editId:
      command = L"editxref";
      break;
    case propertiesId:
      command = L"properties";
      break;
    default:
      if (id < firstVersionId) return;
      command = formatText(L"%s %d", {L"getxrefver2", static_cast<int>(id - firstVersionId)});
      break;
  }
  sendToCommandLine(acDocManagerPtr()->mdiActiveDocument(), commandText(app, command));
}

}  // namespace tessaro
