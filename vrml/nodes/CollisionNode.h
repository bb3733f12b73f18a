#pragma once

// A group with its own say in collisions. Its proxy stands in for its children when collisions are looked for, and is
// not one of them.

#include "vrml/fields/SFBool.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct CollisionData : GroupingData {
  Named<SFBool> collide{"collide", true};
};

class CollisionNode final : public TypedNode<GroupingNode, CollisionData> {
 public:
  static const NodeClass kClass;
  explicit CollisionNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] bool getCollide() const { return data().collide->getValue(); }
  void setCollide(bool value) { editData().collide->setValue(value); }
};

}  // namespace vrml
