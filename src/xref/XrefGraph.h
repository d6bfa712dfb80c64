#pragma once

#include <xgraph.h>

#include <deque>
#include <set>

#include "foundation/CString.h"

namespace tessaro {

/// Fetches the xref graph of the host's working database, the host's ghost nodes included.
/// @return the host's status; the graph is of use only after Acad::eOk.
Acad::ErrorStatus fetchXrefGraph(AcDbXrefGraph& graph);

/// Walks the graph breadth-first from `start`'s outgoing nodes, so that nested xrefs come after all
/// those of the level above. A node that is reached twice is visited twice, but gone below only
/// once, so that the walk ends whatever refers to what.
/// @param visit takes each AcDbXrefGraphNode and tells whether to go on below it; anything it
/// throws ends the walk.
template <class Visit>
void walkXrefs(const AcDbGraphNode& start, Visit visit) {
  std::deque<const AcDbGraphNode*> waiting;
  std::set<const AcDbGraphNode*> goneBelow;
  const auto queueBelow = [&waiting](const AcDbGraphNode& node) {
    for (int edge = 0; edge < node.numOut(); ++edge) waiting.push_back(node.out(edge));
  };
  queueBelow(start);
  while (!waiting.empty()) {
    const AcDbGraphNode* node = waiting.front();
    waiting.pop_front();
    if (visit(*static_cast<const AcDbXrefGraphNode*>(node)) && goneBelow.insert(node).second) {
      queueBelow(*node);
    }
  }
}

/// Collects the block names of a direct xref of the current drawing and of all xrefs nested in it.
/// @param blockName found among the drawing's direct xrefs, ignoring case.
/// @param names gets the found node's own name as well.
/// @return false if there is no drawing, no graph, or no direct xref of that name.
bool collectXrefTree(const CString& blockName, std::set<CString>& names);

}  // namespace tessaro
