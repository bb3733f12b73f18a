#pragma once

// Turns drags into rotations about an axis. Its disk angle is the float 0.262, not a twelfth of pi.

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/SensorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct CylinderSensorData : SensorData {
  Named<SFBool> autoOffset{"autoOffset", true};
  Named<SFFloat> diskAngle{"diskAngle", 0.262f};
  Named<SFFloat> minAngle{"minAngle", 0.0f};
  Named<SFFloat> maxAngle{"maxAngle", -1.0f};
  Named<SFFloat> offset{"offset", 0.0f};
};

class CylinderSensorNode final : public TypedNode<SensorNode, CylinderSensorData> {
 public:
  static const NodeClass kClass;
  explicit CylinderSensorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] bool getAutoOffset() const { return data().autoOffset->getValue(); }
  void setAutoOffset(bool value) { editData().autoOffset->setValue(value); }
  [[nodiscard]] float getDiskAngle() const { return data().diskAngle->getValue(); }
  void setDiskAngle(float value) { editData().diskAngle->setValue(value); }
  [[nodiscard]] float getMinAngle() const { return data().minAngle->getValue(); }
  void setMinAngle(float value) { editData().minAngle->setValue(value); }
  [[nodiscard]] float getMaxAngle() const { return data().maxAngle->getValue(); }
  void setMaxAngle(float value) { editData().maxAngle->setValue(value); }
  [[nodiscard]] float getOffset() const { return data().offset->getValue(); }
  void setOffset(float value) { editData().offset->setValue(value); }
};

}  // namespace vrml
