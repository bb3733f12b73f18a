#pragma once

// Notices the pointer over its siblings.

#include "vrml/nodes/SensorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

class TouchSensorNode final : public TypedNode<SensorNode, SensorData> {
 public:
  static const NodeClass kClass;
  explicit TouchSensorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}
};

}  // namespace vrml
