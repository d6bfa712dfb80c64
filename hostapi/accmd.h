#pragma once

#include <windows.h>

#include "dbmain.h"

class AcEdCommand;
class AcEdCommandIterator;
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

  virtual bool atPut(const ACHAR*, AcRxDictionary*&, AcRxDictionary*&) = 0;
  /// Adds a command; `eDuplicateKey` if one of its names is in use.
  virtual Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                       const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                       AcRxFunctionPtr functionAddr,
                                       AcEdUIContext* uiContext = NULL, int fcode = -1,
                                       HINSTANCE hResourceHandle = NULL,
                                       AcEdCommand** cmdPtrRet = NULL) = 0;
  virtual AcEdCommandIterator* iterator() = 0;
  virtual AcEdCommand* lookupGlobalCmd(const ACHAR*) = 0;
  virtual AcEdCommand* lookupLocalCmd(const ACHAR*) = 0;
  virtual AcEdCommand* lookupCmd(const ACHAR*, bool) = 0;
  virtual AcEdCommand* lookupCmd(const ACHAR*, bool, bool) = 0;
  virtual AcEdCommand* lookupCmd(const ACHAR*, bool, bool, bool) = 0;
  virtual AcEdCommand* lookupCmd2(const ACHAR*, bool, bool, int, bool) = 0;
  virtual Acad::ErrorStatus popGroupToTop(const ACHAR*) = 0;
  virtual Acad::ErrorStatus removeCmd(const ACHAR*, const ACHAR*) = 0;
  /// Removes a group with all its commands; `eKeyNotFound` if there is none.
  virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
};
