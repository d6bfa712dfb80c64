#include "frame/CommandTable.h"

#include <accmd.h>

#include "checkout/Lock.h"
#include "checkout/Unlock.h"
#include "foundation/Border.h"
#include "frame/CommandGuard.h"
#include "frame/LoadRecord.h"
#include "frame/TessaroAcadApp.h"
#include "titleblock/UpdateBorder.h"
#include "ui/GetVersionDialog.h"
#include "ui/PropertiesDialog.h"
#include "ui/SettingsDialog.h"
#include "vault/CurrentDrawing.h"
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
  getxrefversion(app, app.xrefStateObserver(),
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

const Command commands[] = {
    {L"install", ACRX_CMD_MODAL, worker<installCommand>},
    {L"uninstall", ACRX_CMD_MODAL, worker<uninstallCommand>},
    {L"update", ACRX_CMD_MODAL, worker<updateCommand>},
    {L"updatecurrent", ACRX_CMD_MODAL, worker<updateCurrentCommand>},
    {L"lockxref", ACRX_CMD_REDRAW, worker<lockXrefCommand>},
    {L"unlockxref", ACRX_CMD_REDRAW, worker<unlockXrefCommand>},
    {L"lock", ACRX_CMD_SESSION, worker<lockCommand>},
    {L"locksilent", ACRX_CMD_SESSION, worker<lockSilentCommand>},
    {L"unlock", ACRX_CMD_REDRAW, worker<unlockCommand>},
    {L"getxrefversion", ACRX_CMD_REDRAW, worker<getXrefVersionCommand>},
    {L"getxrefver2", ACRX_CMD_REDRAW, worker<getXrefVer2Command>},
    {L"editxref", ACRX_CMD_REDRAW, worker<editXrefCommand>},
    {L"getlatestxrefs", ACRX_CMD_MODAL, worker<getLatestXrefsCommand>},
    {L"settings", ACRX_CMD_MODAL, worker<settingsCommand>},
    {L"properties", ACRX_CMD_REDRAW, worker<propertiesCommand>},
    {L"telllockedelsewhere", ACRX_CMD_SESSION, worker<tellLockedElsewhereCommand>},
    {L"asklock", ACRX_CMD_SESSION, worker<askLockCommand>},
};

}  // namespace

void addCommands(TessaroAcadApp& app) {
  for (const Command& command : commands) {
    atBorder([&] { app.addAppCommand(command.name, command.name, command.worker, command.flags); });
  }
}

}  // namespace tessaro
