#pragma once

// Light from one point within a cone.

#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/LightNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct SpotLightData : LightData {
  Named<SFFloat> ambientIntensity{"ambientIntensity", 0.0f};
  Named<SFVec3f> location{"location", 0.0f, 0.0f, 0.0f};
  Named<SFVec3f> direction{"direction", 0.0f, 0.0f, -1.0f};
  Named<SFFloat> radius{"radius", 100.0f};
  Named<SFVec3f> attenuation{"attenuation", 1.0f, 0.0f, 0.0f};
  Named<SFFloat> beamWidth{"beamWidth", 1.570796f};
  Named<SFFloat> cutOffAngle{"cutOffAngle", 0.785398f};
};

class SpotLightNode final : public TypedNode<LightNode, SpotLightData> {
 public:
  static const NodeClass kClass;
  explicit SpotLightNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getAmbientIntensity() const { return data().ambientIntensity->getValue(); }
  void setAmbientIntensity(float value) { editData().ambientIntensity->setValue(value); }
  [[nodiscard]] const SFVec3f& getLocation() const { return *data().location; }
  void setLocation(float x, float y, float z) { editData().location->setValue(x, y, z); }
  [[nodiscard]] const SFVec3f& getDirection() const { return *data().direction; }
  void setDirection(float x, float y, float z) { editData().direction->setValue(x, y, z); }
  [[nodiscard]] float getRadius() const { return data().radius->getValue(); }
  void setRadius(float value) { editData().radius->setValue(value); }
  [[nodiscard]] const SFVec3f& getAttenuation() const { return *data().attenuation; }
  void setAttenuation(float x, float y, float z) { editData().attenuation->setValue(x, y, z); }
  [[nodiscard]] float getBeamWidth() const { return data().beamWidth->getValue(); }
  void setBeamWidth(float value) { editData().beamWidth->setValue(value); }
  [[nodiscard]] float getCutOffAngle() const { return data().cutOffAngle->getValue(); }
  void setCutOffAngle(float value) { editData().cutOffAngle->setValue(value); }
};

}  // namespace vrml
