#pragma once

#include "foundation/FlagScope.h"

namespace tessaro {

/// Marks work on xrefs and their files for a scope. The client may show windows meanwhile, which
/// dispatch the timer's messages and the user's clicks; these must not start other work on xrefs,
/// since some are unloaded.
class XrefWork {
 public:
  /// Whether such work is in progress, by a command or by the status window.
  static bool inProgress() { return flag; }

 private:
  static inline bool flag = false;

  const FlagScope scope{flag};
};

}  // namespace tessaro
