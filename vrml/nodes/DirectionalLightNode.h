#pragma once

// Light from one direction.

#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/LightNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct DirectionalLightData : LightData {
  Named<SFFloat> ambientIntensity{"ambientIntensity", 0.0f};
  Named<SFVec3f> direction{"direction", 0.0f, 0.0f, -1.0f};
};

class DirectionalLightNode final : public TypedNode<LightNode, DirectionalLightData> {
 public:
  static const NodeClass kClass;
  explicit DirectionalLightNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getAmbientIntensity() const { return data().ambientIntensity->getValue(); }
  void setAmbientIntensity(float value) { editData().ambientIntensity->setValue(value); }
  [[nodiscard]] const SFVec3f& getDirection() const { return *data().direction; }
  void setDirection(float x, float y, float z) { editData().direction->setValue(x, y, z); }
};

}  // namespace vrml
