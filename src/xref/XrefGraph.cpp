#include "xref/XrefGraph.h"

#include <dbapserv.h>

#include <cwchar>

namespace tessaro {

namespace {

const AcDbXrefGraphNode* findDirectXref(const AcDbGraphNode& root, const CString& blockName) {
  for (int edge = 0; edge < root.numOut(); ++edge) {
    const auto* node = static_cast<const AcDbXrefGraphNode*>(root.out(edge));
    if (_wcsicmp(textOf(node->name()).c_str(), blockName.c_str()) == 0) return node;
  }
  return nullptr;
}

}  // namespace

Acad::ErrorStatus fetchXrefGraph(AcDbXrefGraph& graph) {
  return acedGetCurDwgXrefGraph(graph, Adesk::kTrue);
}

bool collectXrefTree(const CString& blockName, std::set<CString>& names) {
  if (!acdbHostApplicationServices()->workingDatabase()) return false;
  AcDbXrefGraph graph;
  if (fetchXrefGraph(graph) != Acad::eOk || graph.numNodes() == 0) return false;
  const AcDbXrefGraphNode* found = findDirectXref(*graph.node(0), blockName);
  if (!found) return false;
  names.insert(textOf(found->name()));
  walkXrefs(*found, [&names](const AcDbXrefGraphNode& node) {
    names.insert(textOf(node.name()));
    return true;
  });
  return true;
}

}  // namespace tessaro
