#pragma once

// The root of a parsed file, whose children are the nodes of its top level.

#include "vrml/nodes/TypedNode.h"

namespace vrml {

class RootNode final : public TypedNode<Node, PlainData> {
 public:
  static const NodeClass kClass;
  explicit RootNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}
};

}  // namespace vrml
