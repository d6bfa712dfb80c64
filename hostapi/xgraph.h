#pragma once

#include "AdAChar.h"
#include "dbid.h"
#include "graph.h"

/// A drawing in the graph of xrefs: the root is the drawing itself, the others are xrefs.
class AcDbXrefGraphNode : public AcDbGraphNode {
 public:
  ~AcDbXrefGraphNode() override;

  /// Name of the xref's block.
  const ACHAR* name() const;
  /// The xref's block table record in the drawing.
  AcDbObjectId btrId() const;

 private:
  friend class AcDbGraphImp;
  AcDbXrefGraphNode(const ACHAR* name, AcDbObjectId btrId);

  ACHAR* name_;
  AcDbObjectId btrId_;
};

/// Which drawing refers to which.
class AcDbXrefGraph : public AcDbGraph {
 public:
  AcDbXrefGraph();
  ~AcDbXrefGraph() override;

  /// The node `idx`, null if there is none.
  AcDbXrefGraphNode* xrefNode(int idx) const;
};
