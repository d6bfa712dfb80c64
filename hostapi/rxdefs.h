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
  /// How two objects of a class compare.
  enum Ordering { kLessThan = -1, kEqual = 0, kGreaterThan = 1, kNotOrderable };
  enum DictIterType { kDictSorted = 0, kDictCollated = 1 };
};
