#pragma once

// A group that turns about an axis to face the viewer.

#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct BillboardData : GroupingData {
  Named<SFVec3f> axisOfRotation{"axisOfRotation", 0.0f, 1.0f, 0.0f};
};

class BillboardNode final : public TypedNode<GroupingNode, BillboardData> {
 public:
  static const NodeClass kClass;
  explicit BillboardNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const SFVec3f& getAxisOfRotation() const { return *data().axisOfRotation; }
  void setAxisOfRotation(float x, float y, float z) { editData().axisOfRotation->setValue(x, y, z); }
};

}  // namespace vrml
