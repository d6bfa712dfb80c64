#pragma once

#include "rxdict.h"

#define ACRX_DYNAMIC_LINKER L"DynamicLinker"

/// The host's view of its loaded applications. `appId` is the packet of `kInitAppMsg`; each
/// operation answers false for an application that it doesn't know.
class AcRxDynamicLinker : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDynamicLinker)

  /// The application stays loaded: a request to unload it is refused.
  virtual bool lockApplication(void* appId) const = 0;
  virtual bool unlockApplication(void* appId) const = 0;
  /// The application works with several open documents.
  virtual bool registerAppMDIAware(void* appId) const = 0;
  virtual bool registerAppNotMDIAware(void* appId) const = 0;
};
