#pragma once

#include "graph.h"

/// A drawing in the graph of xrefs: the root is the drawing itself, the others are xrefs.
class AcDbXrefGraphNode : public AcDbGraphNode {
 public:
  explicit AcDbXrefGraphNode(const ACHAR* pName = nullptr, AcDbObjectId btrId = AcDbObjectId());
  ~AcDbXrefGraphNode() override;

  /// Name of the xref's block.
  const ACHAR* name() const { return mpName; }
  /// The xref's block table record in the drawing.
  AcDbObjectId btrId() const { return mBtrId; }

 private:
  [[maybe_unused]] void* mpxdata;
  ACHAR* mpName;
  AcDbObjectId mBtrId;
  [[maybe_unused]] AcDb::XrefStatus mStatus;
  [[maybe_unused]] AcDb::XrefNotificationStatus mNotifyStatus;
};

/// Which drawing refers to which.
class AcDbXrefGraph : public AcDbGraph {
 public:
  explicit AcDbXrefGraph(AcDbXrefGraphNode* pHost = nullptr);
  ~AcDbXrefGraph() override;

  AcDbXrefGraphNode* xrefNode(int idx) const { return static_cast<AcDbXrefGraphNode*>(node(idx)); }

  Adesk::Boolean findCycles(AcDbGraphNode*) override;
};

/// Fills `graph` with the xrefs of the working database's drawing; `eNoDatabase` without one.
/// `includeGhosts` asks as well for the nested xrefs of those that aren't loaded.
Acad::ErrorStatus acedGetCurDwgXrefGraph(AcDbXrefGraph& graph,
                                         Adesk::Boolean includeGhosts = Adesk::kFalse);
