#pragma once

#include "foundation/AppContext.h"

namespace tessaro {

class XrefStateObserver;

enum class XrefCheck {
  current = 0,     ///< every xref that could be compared is current
  outOfDate = 1,   ///< at least one was out of date, even if it was refreshed
  noXrefs = 2,     ///< the drawing has no xrefs, or its folder is in no vault
  impossible = 3,  ///< no drawing, no folder, no document lock, no graph, or other work on xrefs is
                   ///< in progress
  failed = 4,      ///< the vault failed; the failure was reported in a box
};

/// Compares all xrefs of the current drawing, nested ones included, with the vault. It locks the
/// document itself, since the monitor's timer calls it outside any command. COM must be initialized
/// on the thread.
/// @param observer is notified after an update
/// @param update true: unload, fetch and reload each stale xref; false: stop at the first stale one
XrefCheck checkXrefs(AppContext& app, XrefStateObserver& observer, bool update);

}  // namespace tessaro
