#pragma once

#include <dbid.h>
#include <graph.h>

#include <unordered_map>
#include <vector>

#include "core/HandleLedger.h"
#include "core/SessionState.h"

class AcDbObjectImp;

namespace wb {

class Drawing;

/// What a session has of drawings and of the objects in them.
struct DatabaseState {
  std::vector<Drawing*> drawings;                             ///< in memory
  std::unordered_map<Adesk::IntPtr, AcDbObjectImp*> objects;  ///< by their ids
  /// An id is never used twice, so that one of a closed drawing finds nothing.
  Adesk::IntPtr lastId = 0x1000;
  unsigned edits = 0;  ///< what users changed
  HandleLedger<const void*> iterators{L"iterator"};
  HandleLedger<const AcDbGraph*> graphs{L"graph"};  ///< those that the host filled
  std::wstring activeLayout;  ///< the text that the layout manager returned last
};

inline DatabaseState& databaseState() { return sessionPart<DatabaseState>(); }

}  // namespace wb
