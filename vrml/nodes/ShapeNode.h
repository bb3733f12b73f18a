#pragma once

// A geometry and how it looks; both are children.

#include "vrml/nodes/TypedNode.h"

namespace vrml {

class ShapeNode final : public TypedNode<Node, PlainData> {
 public:
  static const NodeClass kClass;
  explicit ShapeNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}
};

}  // namespace vrml
