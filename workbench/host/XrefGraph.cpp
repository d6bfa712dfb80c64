#include <acedxref.h>
#include <dbapserv.h>

#include <cstdlib>
#include <cwchar>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/Faults.h"
#include "core/StandInTime.h"
#include "core/Accounts.h"
#include "host/DbObjects.h"
#include "host/Drawing.h"
#include "host/DrawingDatabase.h"
#include "host/Xrefs.h"

class AcDbGraphNodeImp {
 public:
  std::vector<AcDbGraphNode*> out;
};

/// The nodes of a graph. It is in the accounts from when the host filled it until its end.
class AcDbGraphImp {
 public:
  ~AcDbGraphImp() {
    if (ticket) wb::giveBack(*ticket);
  }

  static void fill(AcDbGraph& graph, const wb::Drawing& drawing, bool withGhosts) {
    delete graph.imp;
    graph.imp = new AcDbGraphImp;
    graph.imp->ticket = wb::handOut(L"graph", L"AcDbXrefGraph");
    graph.imp->build(drawing, withGhosts);
  }

  std::vector<std::unique_ptr<AcDbGraphNode>> nodes;

 private:
  AcDbGraphNode* add(const std::wstring& name, AcDbObjectId record) {
    nodes.emplace_back(new AcDbXrefGraphNode(name.c_str(), record));
    return nodes.back().get();
  }
  static void connect(AcDbGraphNode* from, AcDbGraphNode* to) { from->imp->out.push_back(to); }

  void build(const wb::Drawing& drawing, bool withGhosts) {
    AcDbGraphNode* root = add(drawing.path().stem().wstring(), drawing.content().modelSpace().id);
    std::map<const wb::Xrefs::Xref*, AcDbGraphNode*> nodeOf;
    for (const auto& xref : drawing.xrefs().all()) {
      if (!withGhosts && !drawing.xrefs().reached(*xref)) continue;
      AcDbGraphNode* node = add(xref->record->blockName, xref->record->id);
      nodeOf[xref.get()] = node;
      if (xref->direct) connect(root, node);
    }
    for (const auto& [xref, node] : nodeOf) {
      if (!withGhosts && !xref->loaded) continue;
      for (const auto* nested : xref->nested) {
        const auto found = nodeOf.find(nested);
        if (found != nodeOf.end()) connect(node, found->second);
      }
    }
  }

  std::optional<wb::Ticket> ticket;
};

AcDbGraphNode::AcDbGraphNode() : imp(new AcDbGraphNodeImp) {}
AcDbGraphNode::~AcDbGraphNode() { delete imp; }

int AcDbGraphNode::numOut() const { return static_cast<int>(imp->out.size()); }

AcDbGraphNode* AcDbGraphNode::out(int idx) const {
  return idx < 0 || idx >= numOut() ? nullptr : imp->out[static_cast<size_t>(idx)];
}

AcDbGraph::AcDbGraph() : imp(new AcDbGraphImp) {}
AcDbGraph::~AcDbGraph() {
  const wb::InStandIn inside;
  delete imp;
}

int AcDbGraph::numNodes() const { return static_cast<int>(imp->nodes.size()); }

AcDbGraphNode* AcDbGraph::node(int idx) const {
  return idx < 0 || idx >= numNodes() ? nullptr : imp->nodes[static_cast<size_t>(idx)].get();
}

AcDbGraphNode* AcDbGraph::rootNode() const { return node(0); }

AcDbXrefGraphNode::AcDbXrefGraphNode(const ACHAR* name, AcDbObjectId btrId)
    : name_(_wcsdup(name)), btrId_(btrId) {}
AcDbXrefGraphNode::~AcDbXrefGraphNode() { std::free(name_); }

const ACHAR* AcDbXrefGraphNode::name() const { return name_; }
AcDbObjectId AcDbXrefGraphNode::btrId() const { return btrId_; }

AcDbXrefGraph::AcDbXrefGraph() = default;
AcDbXrefGraph::~AcDbXrefGraph() = default;

AcDbXrefGraphNode* AcDbXrefGraph::xrefNode(int idx) const {
  return static_cast<AcDbXrefGraphNode*>(node(idx));
}

namespace {

wb::Drawing* drawingOf(const AcDbDatabase* database) {
  return wb::Drawing::of(database ? database : acdbHostApplicationServices()->workingDatabase());
}

Acad::ErrorStatus change(const ACHAR* name, const AcDbDatabase* database,
                         Acad::ErrorStatus (wb::Xrefs::*operation)(std::wstring_view)) {
  if (!name || !*name) return Acad::eNullBlockName;
  wb::Drawing* drawing = drawingOf(database);
  if (!drawing) return Acad::eNoDatabase;
  return (drawing->xrefs().*operation)(name);
}

}  // namespace

Acad::ErrorStatus acedGetCurDwgXrefGraph(AcDbXrefGraph& graph, Adesk::Boolean includeGhosts) {
  const wb::InStandIn inside;
  const wb::Drawing* drawing = drawingOf(nullptr);
  if (!drawing) return Acad::eNoDatabase;
  if (FAILED(wb::takeFault(L"host.acedGetCurDwgXrefGraph"))) return Acad::eOutOfMemory;
  AcDbGraphImp::fill(graph, *drawing, includeGhosts != Adesk::kFalse);
  return Acad::eOk;
}

Acad::ErrorStatus acedXrefUnload(const ACHAR* XrefBlockname, const bool, AcDbDatabase* pHostDb) {
  const wb::InStandIn inside;
  if (FAILED(wb::takeFault(L"host.acedXrefUnload"))) return Acad::eFilerError;
  return change(XrefBlockname, pHostDb, &wb::Xrefs::unload);
}

Acad::ErrorStatus acedXrefReload(const ACHAR* XrefBlockname, const bool, AcDbDatabase* pHostDb) {
  const wb::InStandIn inside;
  if (FAILED(wb::takeFault(L"host.acedXrefReload"))) return Acad::eFilerError;
  return change(XrefBlockname, pHostDb, &wb::Xrefs::reload);
}
