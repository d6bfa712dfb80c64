#pragma once

#include <windows.h>

#include "rxobject.h"

class AcEdCommand;
class AcEdUIContext;

typedef void (*AcRxFunctionPtr)();

#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001
#define ACRX_CMD_USEPICKSET 0x00000002
#define ACRX_CMD_REDRAW 0x00000004
#define ACRX_CMD_SESSION 0x00200000

/// The host's commands, by group; "ACAD_REGISTERED_COMMANDS" in `acrxSysRegistry`.
class AcEdCommandStack : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEdCommandStack)

  /// Adds a command; `eDuplicateKey` if one of its names is in use.
  virtual Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                       const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                       AcRxFunctionPtr functionAddr,
                                       AcEdUIContext* uiContext = NULL, int fcode = -1,
                                       HINSTANCE hResourceHandle = NULL,
                                       AcEdCommand** cmdPtrRet = NULL) = 0;
  /// Removes a group with all its commands; `eKeyNotFound` if there is none.
  virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
};
