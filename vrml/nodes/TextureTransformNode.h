#pragma once

// How texture coordinates are moved, turned and scaled.

#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFVec2f.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct TextureTransformData : NodeData {
  Named<SFVec2f> translation{"translation", 0.0f, 0.0f};
  Named<SFVec2f> scale{"scale", 1.0f, 1.0f};
  Named<SFVec2f> center{"center", 0.0f, 0.0f};
  Named<SFFloat> rotation{"rotation", 0.0f};
};

class TextureTransformNode final : public TypedNode<Node, TextureTransformData> {
 public:
  static const NodeClass kClass;
  explicit TextureTransformNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const SFVec2f& getTranslation() const { return *data().translation; }
  void setTranslation(float x, float y) { editData().translation->setValue(x, y); }
  [[nodiscard]] const SFVec2f& getScale() const { return *data().scale; }
  void setScale(float x, float y) { editData().scale->setValue(x, y); }
  [[nodiscard]] const SFVec2f& getCenter() const { return *data().center; }
  void setCenter(float x, float y) { editData().center->setValue(x, y); }
  [[nodiscard]] float getRotation() const { return data().rotation->getValue(); }
  void setRotation(float value) { editData().rotation->setValue(value); }
};

}  // namespace vrml
