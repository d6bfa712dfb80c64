#pragma once

#include <xgraph.h>

#include <deque>
#include <set>

#include "foundation/CString.h"

namespace tessaro {

/// Reads the xref graph of the host's working database, including the host's ghost nodes.
/// @return the host's status; the graph is valid only for Acad::eOk
Acad::ErrorStatus fetchXrefGraph(AcDbXrefGraph& graph);

/// Walks the graph breadth-first from the outgoing nodes of `start`: nested xrefs follow all xrefs
/// of the level above. A node that is reached twice is visited twice, but its own nodes are queued
/// only once, so that the walk ends in a graph with cycles.
/// @param visit called with each AcDbXrefGraphNode; returns whether to walk the nodes below it. Its
/// exceptions end the walk.
template <class Visit>
void walkXrefs(const AcDbGraphNode& start, Visit visit) {
  std::deque<const AcDbGraphNode*> waiting;
  std::set<const AcDbGraphNode*> expanded;
  const auto queueBelow = [&waiting](const AcDbGraphNode& node) {
    for (int edge = 0; edge < node.numOut(); ++edge) waiting.push_back(node.out(edge));
  };
  queueBelow(start);
  while (!waiting.empty()) {
    const AcDbGraphNode* node = waiting.front();
    waiting.pop_front();
    if (visit(*static_cast<const AcDbXrefGraphNode*>(node)) && expanded.insert(node).second) {
      queueBelow(*node);
    }
  }
}

/// Collects the block names of a direct xref of the current drawing and of all xrefs nested in it.
/// @param blockName the direct xref, ignoring case
/// @param names the found names are added, that of the direct xref as the drawing spells it
/// @return false if there is no drawing, no graph, or no direct xref of that name
bool collectXrefTree(const CString& blockName, std::set<CString>& names);

}  // namespace tessaro
