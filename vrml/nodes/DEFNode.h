#pragma once

// What a USE puts into the tree until the pass after the load puts an instance in its place: a reference to the node
// of that name, which it shares name and fields with.

#include "vrml/nodes/TypedNode.h"

namespace vrml {

class DEFNode final : public TypedNode<Node, PlainData> {
 public:
  static const NodeClass kClass;
  explicit DEFNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}
};

}  // namespace vrml
