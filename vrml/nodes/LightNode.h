#pragma once

// The base of the light sources: whether they shine, how strongly and in which colour.

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFColor.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/Node.h"

namespace vrml {

struct LightData : NodeData {
  Named<SFBool> on{"on", true};
  Named<SFFloat> intensity{"intensity", 1.0f};
  Named<SFColor> color{"color", 1.0f, 1.0f, 1.0f};
};

class LightNode : public Node {
 public:
  [[nodiscard]] bool getOn() const { return lightData().on->getValue(); }
  void setOn(bool value) { editLightData().on->setValue(value); }
  [[nodiscard]] float getIntensity() const { return lightData().intensity->getValue(); }
  void setIntensity(float value) { editLightData().intensity->setValue(value); }
  [[nodiscard]] const SFColor& getColor() const { return *lightData().color; }
  void setColor(float r, float g, float b) { editLightData().color->setValue(r, g, b); }

 protected:
  using Node::Node;

 private:
  [[nodiscard]] const LightData& lightData() const { return static_cast<const LightData&>(data()); }
  [[nodiscard]] LightData& editLightData() { return static_cast<LightData&>(editData()); }
};

}  // namespace vrml
