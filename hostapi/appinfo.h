#pragma once

#include "acarray.h"
#include "acdb.h"
#include "dbid.h"
#include "rxdlinkr.h"

class AcadAppInfoImp;

/// One entry of the host's load record, as an application fills it.
class AcadAppInfo : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcadAppInfo)

  AcadAppInfo();
  ~AcadAppInfo() override;

  void setAppName(const ACHAR* appName);
  /// Full path of the application's file.
  void setModuleName(const ACHAR* moduleName);
  void setLoadReason(AcadApp::LoadReasons reason);
  /// Writes the record, over an older one of the same name.
  AcadApp::ErrorStatus writeToRegistry(bool bObjDbx = false, bool skipHKLM = false);

 private:
  AcadAppInfoImp* mpImp;
};
