#pragma once

// Turns drags into rotations about a point.

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFRotation.h"
#include "vrml/nodes/SensorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct SphereSensorData : SensorData {
  Named<SFBool> autoOffset{"autoOffset", true};
  Named<SFRotation> offset{"offset", 0.0f, 0.0f, 1.0f, 0.0f};
};

class SphereSensorNode final : public TypedNode<SensorNode, SphereSensorData> {
 public:
  static const NodeClass kClass;
  explicit SphereSensorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] bool getAutoOffset() const { return data().autoOffset->getValue(); }
  void setAutoOffset(bool value) { editData().autoOffset->setValue(value); }
  [[nodiscard]] const SFRotation& getOffset() const { return *data().offset; }
  void setOffset(float x, float y, float z, float angle) { editData().offset->setValue(x, y, z, angle); }
};

}  // namespace vrml
