#pragma once

// The colours of a surface and how it takes light.

#include "vrml/fields/SFColor.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

/// What most files leave as it is.
struct MaterialRare {
  Named<SFFloat> ambientIntensity{"ambientIntensity", 0.2f};
  Named<SFFloat> shininess{"shininess", 0.2f};
  Named<SFColor> specularColor{"specularColor", 0.0f, 0.0f, 0.0f};
  Named<SFColor> emissiveColor{"emissiveColor", 0.0f, 0.0f, 0.0f};
};

struct MaterialData : NodeData {
  Named<SFFloat> transparency{"transparency", 0.0f};
  Named<SFColor> diffuseColor{"diffuseColor", 0.8f, 0.8f, 0.8f};
  Rare<MaterialRare> rare;
};

class MaterialNode final : public TypedNode<Node, MaterialData> {
 public:
  static const NodeClass kClass;
  explicit MaterialNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getTransparency() const { return data().transparency->getValue(); }
  void setTransparency(float value) { editData().transparency->setValue(value); }
  [[nodiscard]] float getAmbientIntensity() const { return data().rare.get().ambientIntensity->getValue(); }
  void setAmbientIntensity(float value) { editData().rare.edit().ambientIntensity->setValue(value); }
  [[nodiscard]] float getShininess() const { return data().rare.get().shininess->getValue(); }
  void setShininess(float value) { editData().rare.edit().shininess->setValue(value); }
  [[nodiscard]] const SFColor& getDiffuseColor() const { return *data().diffuseColor; }
  void setDiffuseColor(float r, float g, float b) { editData().diffuseColor->setValue(r, g, b); }
  [[nodiscard]] const SFColor& getSpecularColor() const { return *data().rare.get().specularColor; }
  void setSpecularColor(float r, float g, float b) { editData().rare.edit().specularColor->setValue(r, g, b); }
  [[nodiscard]] const SFColor& getEmissiveColor() const { return *data().rare.get().emissiveColor; }
  void setEmissiveColor(float r, float g, float b) { editData().rare.edit().emissiveColor->setValue(r, g, b); }
};

}  // namespace vrml
