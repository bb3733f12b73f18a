#pragma once

// Where a sound is heard. Its intensity is 10 until a file gives it: the same number as its range.

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct SoundData : NodeData {
  Named<SFFloat> minFront{"minFront", 1.0f};
  Named<SFFloat> maxFront{"maxFront", 10.0f};
  Named<SFFloat> minBack{"minBack", 1.0f};
  Named<SFFloat> maxBack{"maxBack", 10.0f};
  Named<SFFloat> intensity{"intensity", 10.0f};
  Named<SFFloat> priority{"priority", 0.0f};
  Named<SFVec3f> direction{"direction", 0.0f, 0.0f, 1.0f};
  Named<SFVec3f> location{"location", 0.0f, 0.0f, 0.0f};
  Named<SFBool> spatialize{"spatialize", true};
};

class SoundNode final : public TypedNode<Node, SoundData> {
 public:
  static const NodeClass kClass;
  explicit SoundNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getMinFront() const { return data().minFront->getValue(); }
  void setMinFront(float value) { editData().minFront->setValue(value); }
  [[nodiscard]] float getMaxFront() const { return data().maxFront->getValue(); }
  void setMaxFront(float value) { editData().maxFront->setValue(value); }
  [[nodiscard]] float getMinBack() const { return data().minBack->getValue(); }
  void setMinBack(float value) { editData().minBack->setValue(value); }
  [[nodiscard]] float getMaxBack() const { return data().maxBack->getValue(); }
  void setMaxBack(float value) { editData().maxBack->setValue(value); }
  [[nodiscard]] float getIntensity() const { return data().intensity->getValue(); }
  void setIntensity(float value) { editData().intensity->setValue(value); }
  [[nodiscard]] float getPriority() const { return data().priority->getValue(); }
  void setPriority(float value) { editData().priority->setValue(value); }
  [[nodiscard]] const SFVec3f& getDirection() const { return *data().direction; }
  void setDirection(float x, float y, float z) { editData().direction->setValue(x, y, z); }
  [[nodiscard]] const SFVec3f& getLocation() const { return *data().location; }
  void setLocation(float x, float y, float z) { editData().location->setValue(x, y, z); }
  [[nodiscard]] bool getSpatialize() const { return data().spatialize->getValue(); }
  void setSpatialize(bool value) { editData().spatialize->setValue(value); }
};

}  // namespace vrml
