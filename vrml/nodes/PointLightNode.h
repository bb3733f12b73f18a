#pragma once

// Light from one point in all directions.

#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/LightNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct PointLightData : LightData {
  Named<SFFloat> ambientIntensity{"ambientIntensity", 0.0f};
  Named<SFVec3f> location{"location", 0.0f, 0.0f, 0.0f};
  Named<SFFloat> radius{"radius", 100.0f};
  Named<SFVec3f> attenuation{"attenuation", 1.0f, 0.0f, 0.0f};
};

class PointLightNode final : public TypedNode<LightNode, PointLightData> {
 public:
  static const NodeClass kClass;
  explicit PointLightNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getAmbientIntensity() const { return data().ambientIntensity->getValue(); }
  void setAmbientIntensity(float value) { editData().ambientIntensity->setValue(value); }
  [[nodiscard]] const SFVec3f& getLocation() const { return *data().location; }
  void setLocation(float x, float y, float z) { editData().location->setValue(x, y, z); }
  [[nodiscard]] float getRadius() const { return data().radius->getValue(); }
  void setRadius(float value) { editData().radius->setValue(value); }
  [[nodiscard]] const SFVec3f& getAttenuation() const { return *data().attenuation; }
  void setAttenuation(float x, float y, float z) { editData().attenuation->setValue(x, y, z); }
};

}  // namespace vrml
