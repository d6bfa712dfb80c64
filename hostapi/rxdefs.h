#pragma once

#include "AdAChar.h"
#include "adesk.h"

/// What the host tells an application through `acrxEntryPoint`, and what it takes as the answer.
struct AcRx {
  enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14
  };
  enum AppRetCode { kRetOK = 0, kRetError = 3 };
};

/// What `extern "C" int acrxGetApiVersion()` answers to a host of API level R17.1: the level in
/// the high word, its release in the low one. The host refuses any other high word. The genuine
/// SDK's import library brings the function itself, and this value isn't needed there.
#define ACRX_API_VERSION_R17 0x00110001
