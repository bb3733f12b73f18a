#pragma once

// How a shape looks: a material, a texture and the transform of its coordinates, all of them children.

#include "vrml/nodes/TypedNode.h"

namespace vrml {

class AppearanceNode final : public TypedNode<Node, PlainData> {
 public:
  static const NodeClass kClass;
  explicit AppearanceNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}
};

}  // namespace vrml
