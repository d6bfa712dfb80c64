#include "frame/CommandTable.h"

#include <accmd.h>

#include <iterator>

#include "checkout/Lock.h"
#include "checkout/Unlock.h"
#include "foundation/Border.h"
#include "foundation/CommandNames.h"
#include "foundation/CurrentDrawing.h"
#include "frame/CommandGuard.h"
#include "frame/LoadRecord.h"
#include "frame/TessaroAcadApp.h"
#include "titleblock/UpdateBorder.h"
#include "ui/GetVersionDialog.h"
#include "ui/PropertiesDialog.h"
#include "ui/SettingsDialog.h"
#include "xref/CheckXrefs.h"
#include "xref/EditXref.h"
#include "xref/GetXrefVersion.h"
#include "xref/XrefCheckOut.h"

namespace tessaro {

namespace {

struct Command {
  const wchar_t* name;
  Adesk::Int32 flags;
  AcRxFunctionPtr worker;
};

void installCommand(TessaroAcadApp& app) { install(app); }
void uninstallCommand(TessaroAcadApp&) { uninstall(); }
void updateCommand(TessaroAcadApp& app) { UpdateBorder(app, false); }
void updateCurrentCommand(TessaroAcadApp& app) { UpdateBorder(app, true); }
void lockXrefCommand(TessaroAcadApp& app) { xrefCommand(app, true); }
void unlockXrefCommand(TessaroAcadApp& app) { xrefCommand(app, false); }
void lockCommand(TessaroAcadApp& app) { lock(app, false); }
void lockSilentCommand(TessaroAcadApp& app) { lock(app, true); }
void unlockCommand(TessaroAcadApp& app) { unlock(app, app.pendingCheckIn); }
void getXrefVersionCommand(TessaroAcadApp& app) {
  getChosenXrefVersion(app, app.xrefStateObserver(),
                       [&app](const CString& path) { return chooseVersion(app, path); });
}
void getXrefVer2Command(TessaroAcadApp& app) { getxrefver2(app, app.xrefStateObserver()); }
void editXrefCommand(TessaroAcadApp& app) { editxref(app, app.pendingReloads); }
void getLatestXrefsCommand(TessaroAcadApp& app) { checkXrefs(app, app.xrefStateObserver(), true); }
void settingsCommand(TessaroAcadApp& app) { settings(app, app.statusWindow.get()); }
void propertiesCommand(TessaroAcadApp& app) { properties(app); }
void tellLockedElsewhereCommand(TessaroAcadApp& app) {
  if (const CurrentDrawing drawing = currentDrawing()) {
    guardTellLockedElsewhere(app, drawing.document);
  }
}
void askLockCommand(TessaroAcadApp& app) {
  if (const CurrentDrawing drawing = currentDrawing()) guardAskLock(app, drawing.document);
}

template <void (*routine)(TessaroAcadApp&)>
constexpr AcRxFunctionPtr worker = guardedCommand<TessaroAcadApp, routine>;

constexpr Command table[] = {
    {commands::install, ACRX_CMD_MODAL, worker<installCommand>},
    {commands::uninstall, ACRX_CMD_MODAL, worker<uninstallCommand>},
    {commands::update, ACRX_CMD_MODAL, worker<updateCommand>},
    {commands::updateCurrent, ACRX_CMD_MODAL, worker<updateCurrentCommand>},
    {commands::lockXref, ACRX_CMD_REDRAW, worker<lockXrefCommand>},
    {commands::unlockXref, ACRX_CMD_REDRAW, worker<unlockXrefCommand>},
    {commands::lock, ACRX_CMD_SESSION, worker<lockCommand>},
    {commands::lockSilent, ACRX_CMD_SESSION, worker<lockSilentCommand>},
    {commands::unlock, ACRX_CMD_REDRAW, worker<unlockCommand>},
    {commands::getXrefVersion, ACRX_CMD_REDRAW, worker<getXrefVersionCommand>},
    {commands::getXrefVer2, ACRX_CMD_REDRAW, worker<getXrefVer2Command>},
    {commands::editXref, ACRX_CMD_REDRAW, worker<editXrefCommand>},
    {commands::getLatestXrefs, ACRX_CMD_MODAL, worker<getLatestXrefsCommand>},
    {commands::settings, ACRX_CMD_MODAL, worker<settingsCommand>},
    {commands::properties, ACRX_CMD_REDRAW, worker<propertiesCommand>},
    {commands::tellLockedElsewhere, ACRX_CMD_SESSION, worker<tellLockedElsewhereCommand>},
    {commands::askLock, ACRX_CMD_SESSION, worker<askLockCommand>},
};

constexpr bool sameName(const wchar_t* left, const wchar_t* right) {
  for (; *left == *right; ++left, ++right) {
    if (*left == 0) return true;
  }
  return false;
}

constexpr bool namesAreUnique() {
  for (size_t one = 0; one < std::size(table); ++one) {
    for (size_t other = 0; other < one; ++other) {
      if (sameName(table[one].name, table[other].name)) return false;
    }
  }
  return true;
}

static_assert(namesAreUnique(), "two commands have the same name");

}  // namespace

void addCommands(TessaroAcadApp& app) {
  for (const Command& command : table) {
    atBorder([&] { app.addAppCommand(command.name, command.name, command.worker, command.flags); });
  }
}

}  // namespace tessaro
