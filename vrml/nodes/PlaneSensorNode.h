#pragma once

// Turns drags into movements in a plane.

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFVec2f.h"
#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/SensorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct PlaneSensorData : SensorData {
  Named<SFBool> autoOffset{"autoOffset", true};
  Named<SFVec2f> minPosition{"minPosition", 0.0f, 0.0f};
  Named<SFVec2f> maxPosition{"maxPosition", -1.0f, -1.0f};
  Named<SFVec3f> offset{"offset", 0.0f, 0.0f, 0.0f};
};

class PlaneSensorNode final : public TypedNode<SensorNode, PlaneSensorData> {
 public:
  static const NodeClass kClass;
  explicit PlaneSensorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] bool getAutoOffset() const { return data().autoOffset->getValue(); }
  void setAutoOffset(bool value) { editData().autoOffset->setValue(value); }
  [[nodiscard]] const SFVec2f& getMinPosition() const { return *data().minPosition; }
  void setMinPosition(float x, float y) { editData().minPosition->setValue(x, y); }
  [[nodiscard]] const SFVec2f& getMaxPosition() const { return *data().maxPosition; }
  void setMaxPosition(float x, float y) { editData().maxPosition->setValue(x, y); }
  [[nodiscard]] const SFVec3f& getOffset() const { return *data().offset; }
  void setOffset(float x, float y, float z) { editData().offset->setValue(x, y, z); }
};

}  // namespace vrml
