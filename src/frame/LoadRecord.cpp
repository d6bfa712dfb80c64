#include "frame/LoadRecord.h"

#include <aced.h>
#include <appinfo.h>
#include <rxregsvc.h>

#include "foundation/AppContext.h"
#include "foundation/ModuleFile.h"
#include "vault/MessageStrings.h"

namespace tessaro {

namespace {

const wchar_t applicationName[] = L"TessaroACAD";

void tell(int number, const char* defaultText) { acedPrompt(loadMessage(number, defaultText)); }

}  // namespace

void install(AppContext& app) {
  const CString path = moduleFilePath(app.moduleInstance);
  AcadAppInfo record;
  record.setAppName(applicationName);
  record.setModuleName(path.c_str());
  record.setLoadReason(AcadApp::kOnAutoCADStartup);
  if (record.writeToRegistry(false, false) == AcadApp::eOk) {
    tell(66, "Tessaro AutoCAD add-in has been registered successfully.");
  } else {
    tell(20, "Failed acrxRegisterApp");
  }
}

void uninstall() {
  if (acrxUnregisterApp(applicationName, false) == AcadApp::eOk) {
    tell(59, "Tessaro AutoCAD add-in has been unregistered successfully.");
  } else {
    tell(19, "Failed acrxUnregisterApp. The add-in may not be installed.");
  }
}

}  // namespace tessaro
