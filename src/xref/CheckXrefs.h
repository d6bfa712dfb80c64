#pragma once

#include "foundation/AppContext.h"

namespace tessaro {

class XrefStateObserver;

enum class XrefCheck {
  current = 0,     ///< every xref that could be looked at is current
  outOfDate = 1,   ///< at least one was found out of date, also if it was then refreshed
  noXrefs = 2,     ///< the drawing has no xrefs, or its folder is in no vault
  impossible = 3,  ///< no drawing, no folder, the document lock refused, no graph, or work on xrefs
                   ///< going on already
  failed = 4,      ///< the vault failed, and the user has been told
};

/// Compares all xrefs of the current drawing, nested ones too, with the vault, and if asked to,
/// brings the stale ones up to date. Takes the document lock itself, since the monitor's timer
/// calls it outside any command. COM has to be started on the thread.
/// @param update unload, fetch and reload each stale xref; else the first stale one ends the check.
XrefCheck checkXrefs(AppContext& app, XrefStateObserver& observer, bool update);

}  // namespace tessaro
