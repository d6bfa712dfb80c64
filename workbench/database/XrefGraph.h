#pragma once

class AcDbXrefGraph;

namespace wb {

class Drawing;

/// Fills the graph with the drawing's xrefs, and enters it in the accounts.
/// @param withGhosts also those that no chain of loaded xrefs leads to
void fillXrefGraph(AcDbXrefGraph& graph, const Drawing& drawing, bool withGhosts);

}  // namespace wb
