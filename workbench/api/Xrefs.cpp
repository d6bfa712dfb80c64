#include <windows.h>

#include <dbapserv.h>
#include <dbmain.h>
#include <xgraph.h>

#include <acedxref.h>

#include <cstdlib>
#include <cwchar>
#include <string_view>

#include "database/Drawing.h"
#include "database/Xrefs.h"
#include "gate/HostCall.h"

using namespace wb;

static Acad::ErrorStatus changeXref(Signature function, void (Xrefs::*change)(std::wstring_view),
                                    const ACHAR* name, const AcDbDatabase* database) {
  return HostCall(function, HostCall::swept).run(Acad::eFilerError, [&] {
    if (!name || !*name) return Acad::eNullBlockName;
    (Drawing::require(database).xrefs().*change)(name);
    return Acad::eOk;
  });
}

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

AcDbXrefGraph::AcDbXrefGraph(AcDbXrefGraphNode* pHost) : AcDbGraph(pHost) {
  const HostCall call(THIS_FUNCTION);
}

AcDbXrefGraph::~AcDbXrefGraph() {
  const HostCall call(THIS_FUNCTION);
  databaseState().graphs.closed(this);
  reset();
}

Acad::ErrorStatus acedGetCurDwgXrefGraph(AcDbXrefGraph& graph, Adesk::Boolean includeGhosts) {
  return HostCall(THIS_FUNCTION, HostCall::swept).run(Acad::eOutOfMemory, [&] {
    Drawing::require(nullptr).xrefs().fill(graph, includeGhosts != Adesk::kFalse);
    return Acad::eOk;
  });
}

Acad::ErrorStatus acedXrefUnload(const ACHAR* blockName, const bool, AcDbDatabase* pHostDb) {
  return changeXref(THIS_FUNCTION, &Xrefs::unload, blockName, pHostDb);
}

Acad::ErrorStatus acedXrefReload(const ACHAR* blockName, const bool, AcDbDatabase* pHostDb) {
  return changeXref(THIS_FUNCTION, &Xrefs::reload, blockName, pHostDb);
}
