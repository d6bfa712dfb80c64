#include <windows.h>

#include <dbapserv.h>
#include <dbmain.h>
#include <xgraph.h>

#include <acedxref.h>

#include <cstdlib>
#include <cwchar>
#include <map>
#include <string>

#include "core/HandleLedger.h"
#include "core/StandInTime.h"
#include "database/Database.h"
#include "database/Drawing.h"
#include "database/Objects.h"
#include "database/Xrefs.h"
#include "faults/Faults.h"

namespace {

/// The graphs that the host filled, until their end.
wb::HandleLedger<const AcDbGraph*>& graphs() {
  static wb::HandleLedger<const AcDbGraph*> ledger(L"graph");
  return ledger;
}

void fill(AcDbXrefGraph& graph, const wb::Drawing& drawing, bool withGhosts) {
  const auto add = [&](const std::wstring& name, AcDbObjectId record) {
    auto* node = new AcDbXrefGraphNode(name.c_str(), record);
    graph.addNode(node);
    return node;
  };
  graph.reset();
  graphs().opened(&graph, L"AcDbXrefGraph");
  AcDbGraphNode* root = add(drawing.path().stem().wstring(), drawing.content().modelSpace().id);
  std::map<const wb::Xrefs::Xref*, AcDbGraphNode*> nodeOf;
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

}  // namespace

AcDbGraphNode::AcDbGraphNode(void* pData)
    : mpData(pData), mFlags(0), mpOwner(nullptr), mpCycleOut(nullptr), mpCycleIn(nullptr) {}
AcDbGraphNode::~AcDbGraphNode() = default;

AcDbGraph::AcDbGraph(AcDbGraphNode* pRoot) : mpCycleNodes(nullptr), mDirty(false) {
  if (pRoot) addNode(pRoot);
}
AcDbGraph::~AcDbGraph() { reset(); }

Acad::ErrorStatus AcDbGraph::addNode(AcDbGraphNode* pNode) {
  if (!pNode || pNode->mpOwner) return Acad::eInvalidInput;
  pNode->mpOwner = this;
  mNodes.append(pNode);
  mDirty = true;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbGraph::addEdge(AcDbGraphNode* pFrom, AcDbGraphNode* pTo) {
  if (!pFrom || !pTo || pFrom->mpOwner != this || pTo->mpOwner != this) return Acad::eInvalidInput;
  pFrom->mOutgoing.append(pTo);
  pTo->mIncoming.append(pFrom);
  mDirty = true;
  return Acad::eOk;
}

void AcDbGraph::reset() {
  for (int index = 0; index < numNodes(); ++index) delete node(index);
  mNodes.removeAll();
  mDirty = true;
}

AcDbXrefGraphNode::AcDbXrefGraphNode(const ACHAR* pName, AcDbObjectId btrId)
    : mpxdata(nullptr),
      mpName(_wcsdup(pName ? pName : L"")),
      mBtrId(btrId),
      mStatus(),
      mNotifyStatus() {}
AcDbXrefGraphNode::~AcDbXrefGraphNode() { std::free(mpName); }

AcDbXrefGraph::AcDbXrefGraph(AcDbXrefGraphNode* pHost) : AcDbGraph(pHost) {}
AcDbXrefGraph::~AcDbXrefGraph() {
  const wb::InStandIn inside;
  graphs().closed(this);
  reset();
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
  fill(graph, *drawing, includeGhosts != Adesk::kFalse);
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
