#pragma once

// A group, and nothing else.

#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

class GroupNode final : public TypedNode<GroupingNode, GroupingData> {
 public:
  static const NodeClass kClass;
  explicit GroupNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}
};

}  // namespace vrml
