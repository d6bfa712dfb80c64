#include "database/XrefGraph.h"

#include <xgraph.h>

#include <map>
#include <string>

#include "database/Database.h"
#include "database/DatabaseState.h"
#include "database/Drawing.h"
#include "database/Xrefs.h"

namespace wb {

void fillXrefGraph(AcDbXrefGraph& graph, const Drawing& drawing, bool withGhosts) {
  const auto add = [&](const std::wstring& name, AcDbObjectId record) {
    auto* node = new AcDbXrefGraphNode(name.c_str(), record);
    graph.addNode(node);
    return node;
  };
  graph.reset();
  databaseState().graphs.opened(&graph, L"AcDbXrefGraph");
  AcDbGraphNode* root = add(drawing.path().stem().wstring(), drawing.content().modelSpace().id);
  std::map<const Xrefs::Xref*, AcDbGraphNode*> nodeOf;
  for (const auto& xref : drawing.xrefs().all()) {
    if (!withGhosts && !drawing.xrefs().reached(*xref)) continue;
    AcDbGraphNode* node = add(xref->record->blockName, xref->record->id);
    nodeOf[xref.get()] = node;
    if (xref->direct) graph.addEdge(root, node);
  }
  for (const auto& [xref, node] : nodeOf) {
    if (!withGhosts && !xref->loaded) continue;
    for (const auto* nested : xref->nested) {
      const auto found = nodeOf.find(nested);
      if (found != nodeOf.end()) graph.addEdge(node, found->second);
    }
  }
}

}  // namespace wb
