#pragma once

#include "dbmain.h"

class AcDbGraph;

/// A node of a directed graph; the graph owns it.
class AcDbGraphNode : public AcHeapOperators {
 public:
  explicit AcDbGraphNode(void* pData = nullptr);
  virtual ~AcDbGraphNode();

  /// Number of the edges that leave the node.
  int numOut() const { return mOutgoing.length(); }
  /// The node at the other end of the edge `idx`, counted from 0.
  AcDbGraphNode* out(int idx) const { return static_cast<AcDbGraphNode*>(mOutgoing.at(idx)); }

 private:
  friend class AcDbGraph;
  AcDbGraphNode(const AcDbGraphNode&) = delete;
  AcDbGraphNode& operator=(const AcDbGraphNode&) = delete;

  AcDbVoidPtrArray mOutgoing;
  AcDbVoidPtrArray mIncoming;
  void* mpData;
  Adesk::UInt8 mFlags;
  AcDbGraph* mpOwner;
  AcDbVoidPtrArray* mpCycleOut;
  AcDbVoidPtrArray* mpCycleIn;
};

/// A directed graph, and the owner of its nodes.
class AcDbGraph : public AcHeapOperators {
 public:
  explicit AcDbGraph(AcDbGraphNode* pRoot = nullptr);
  virtual ~AcDbGraph();

  int numNodes() const { return mNodes.length(); }
  /// The node `idx`; 0 is the root.
  AcDbGraphNode* node(int idx) const { return static_cast<AcDbGraphNode*>(mNodes.at(idx)); }
  /// Null for an empty graph.
  AcDbGraphNode* rootNode() const { return mNodes.isEmpty() ? nullptr : node(0); }

  /// Takes the node over; the first one is the root.
  Acad::ErrorStatus addNode(AcDbGraphNode* pNode);
  /// Connects two nodes of the graph.
  Acad::ErrorStatus addEdge(AcDbGraphNode* pFrom, AcDbGraphNode* pTo);
  /// Deletes all nodes.
  void reset();

  virtual Adesk::Boolean findCycles(AcDbGraphNode*);

 private:
  AcDbGraph(const AcDbGraph&) = delete;
  AcDbGraph& operator=(const AcDbGraph&) = delete;

  AcDbVoidPtrArray mNodes;
  AcDbVoidPtrArray* mpCycleNodes;
  bool mDirty;
};
