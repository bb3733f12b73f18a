#pragma once

// A place to look from; at the origin until a file says otherwise.

#include <string_view>

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFRotation.h"
#include "vrml/fields/SFString.h"
#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/BindableNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ViewpointData : NodeData {
  Named<SFVec3f> position{"position", 0.0f, 0.0f, 0.0f};
  Named<SFRotation> orientation{"orientation", 0.0f, 0.0f, 1.0f, 0.0f};
  Named<SFString> description{"description", ""};
  Named<SFFloat> fieldOfView{"fieldOfView", 0.785398f};
  Named<SFBool> jump{"jump", true};
};

class ViewpointNode final : public TypedNode<BindableNode, ViewpointData> {
 public:
  static const NodeClass kClass;
  explicit ViewpointNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const SFVec3f& getPosition() const { return *data().position; }
  void setPosition(float x, float y, float z) { editData().position->setValue(x, y, z); }
  [[nodiscard]] const SFRotation& getOrientation() const { return *data().orientation; }
  void setOrientation(float x, float y, float z, float angle) { editData().orientation->setValue(x, y, z, angle); }
  [[nodiscard]] const char* getDescription() const { return data().description->getValue(); }
  void setDescription(std::string_view text) { editData().description->setValue(text); }
  [[nodiscard]] float getFieldOfView() const { return data().fieldOfView->getValue(); }
  void setFieldOfView(float value) { editData().fieldOfView->setValue(value); }
  [[nodiscard]] bool getJump() const { return data().jump->getValue(); }
  void setJump(bool value) { editData().jump->setValue(value); }
};

}  // namespace vrml
