#pragma once

// Notices the viewer inside a box.

#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/SensorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ProximitySensorData : SensorData {
  Named<SFVec3f> center{"center", 0.0f, 0.0f, 0.0f};
  Named<SFVec3f> size{"size", 0.0f, 0.0f, 0.0f};
};

class ProximitySensorNode final : public TypedNode<SensorNode, ProximitySensorData> {
 public:
  static const NodeClass kClass;
  explicit ProximitySensorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const SFVec3f& getCenter() const { return *data().center; }
  void setCenter(float x, float y, float z) { editData().center->setValue(x, y, z); }
  [[nodiscard]] const SFVec3f& getSize() const { return *data().size; }
  void setSize(float x, float y, float z) { editData().size->setValue(x, y, z); }
};

}  // namespace vrml
