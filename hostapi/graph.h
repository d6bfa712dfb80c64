#pragma once

#include "adesk.h"

class AcDbGraph;
class AcDbGraphImp;
class AcDbGraphNodeImp;

/// A node of a directed graph; the graph owns it.
class AcDbGraphNode {
 public:
  virtual ~AcDbGraphNode();

  /// Number of the edges that leave the node.
  int numOut() const;
  /// The node at the other end of the edge `idx`, counted from 0; null if there is none.
  AcDbGraphNode* out(int idx) const;

 protected:
  AcDbGraphNode();

 private:
  friend class AcDbGraphImp;
  AcDbGraphNode(const AcDbGraphNode&) = delete;
  AcDbGraphNode& operator=(const AcDbGraphNode&) = delete;

  AcDbGraphNodeImp* imp;
};

/// A directed graph, and the owner of its nodes.
class AcDbGraph {
 public:
  virtual ~AcDbGraph();

  int numNodes() const;
  /// The node `idx`; 0 is the root. Null if there is none.
  AcDbGraphNode* node(int idx) const;
  AcDbGraphNode* rootNode() const;

 protected:
  AcDbGraph();

 private:
  friend class AcDbGraphImp;
  AcDbGraph(const AcDbGraph&) = delete;
  AcDbGraph& operator=(const AcDbGraph&) = delete;

  AcDbGraphImp* imp;
};
