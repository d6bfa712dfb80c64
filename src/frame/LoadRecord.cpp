#include "frame/LoadRecord.h"

#include <aced.h>
#include <appinfo.h>
#include <rxregsvc.h>

#include "foundation/AppContext.h"
#include "foundation/ModuleFile.h"
#include "vault/Messages.h"

namespace tessaro {

namespace {

const wchar_t applicationName[] = L"TessaroACAD";

}  // namespace

void install(AppContext& app) {
  const CString path = moduleFilePath(app.moduleInstance);
  AcadAppInfo record;
  record.setAppName(applicationName);
  record.setModuleName(path.c_str());
  record.setLoadReason(AcadApp::kOnAutoCADStartup);
  if (record.writeToRegistry(false, false) == AcadApp::eOk) {
    acedPrompt(loadMessage(messages::registered));
  } else {
    acedPrompt(loadMessage(messages::registrationFailed));
  }
}

void uninstall() {
  if (acrxUnregisterApp(applicationName, false) == AcadApp::eOk) {
    acedPrompt(loadMessage(messages::unregistered));
  } else {
    acedPrompt(loadMessage(messages::unregistrationFailed));
  }
}

}  // namespace tessaro
