#pragma once

#include "rxdict.h"

#define ACRX_DYNAMIC_LINKER L"DynamicLinker"

class AcRxDLinkerReactor;
class AcRxService;

/// Values of the host's load record.
struct AcadApp {
  enum ErrorStatus {
    eOk = 0,
    eInvalidKey = 1,
    eKeyNotFound = 3,
    eOutOfMemory = 4,
    eInvalidValue = 5,
    eValueNotFound = 6,
    eKeyExists = 7,
    eRegAccessDenied = 8,
    eRejected = 9,
    eUnknownError = 10
  };
  enum LoadReasons {
    kOnProxyDetection = 0x01,
    kOnAutoCADStartup = 0x02,
    kOnCommandInvocation = 0x04,
    kOnLoadRequest = 0x08,
    kLoadDisabled = 0x10
  };
};

/// The host's view of its loaded applications. `appId` is the packet of `kInitAppMsg`; each
/// operation answers false for an application that it doesn't know.
class AcRxDynamicLinker : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDynamicLinker)

  virtual void* getSymbolAddress(const ACHAR*, const char*) const = 0;
  virtual void* getSymbolAddress(const ACHAR*, const ACHAR*) const = 0;
  virtual bool initListedModules(const ACHAR*) = 0;
  virtual bool loadModule(const ACHAR*, bool, bool) = 0;
  virtual bool loadApp(const ACHAR*, AcadApp::LoadReasons, bool, bool) = 0;
  virtual AcRxObject* registerService(const ACHAR*, AcRxService*) = 0;
  virtual bool unloadModule(const ACHAR*, bool) = 0;
  virtual bool unloadApp(const ACHAR*, bool) = 0;
  virtual void addReactor(AcRxDLinkerReactor*) = 0;
  virtual void removeReactor(AcRxDLinkerReactor*) = 0;
  virtual bool isApplicationLocked(const ACHAR*) const = 0;
  /// The application stays loaded: a request to unload it is refused.
  virtual bool lockApplication(void* appId) const = 0;
  virtual bool unlockApplication(void* appId) const = 0;
  virtual bool isAppMDIAware(const ACHAR*) const = 0;
  /// The application works with several open documents.
  virtual bool registerAppMDIAware(void* appId) const = 0;
  virtual bool registerAppNotMDIAware(void* appId) const = 0;
  virtual bool isAppBusy(const ACHAR*) const = 0;
  virtual void setAppBusy(const ACHAR*, bool) const = 0;
  virtual const ACHAR* ProductKey() const = 0;
  virtual Adesk::UInt32 ProductLcid() const = 0;
};
