#pragma once

// How the viewer moves. The headlight is off until a file says otherwise.

#include "vrml/fields/MFFloat.h"
#include "vrml/fields/MFString.h"
#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/BindableNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct NavigationInfoData : NodeData {
  Named<SFFloat> visibilityLimit{"visibilityLimit", 0.0f};
  Named<MFFloat> avatarSize{"avatarSize"};
  Named<MFString> type{"type"};
  Named<SFBool> headlight{"headlight", false};
  Named<SFFloat> speed{"speed", 1.0f};
};

class NavigationInfoNode final : public TypedNode<BindableNode, NavigationInfoData> {
 public:
  static const NodeClass kClass;
  explicit NavigationInfoNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getVisibilityLimit() const { return data().visibilityLimit->getValue(); }
  void setVisibilityLimit(float value) { editData().visibilityLimit->setValue(value); }
  [[nodiscard]] const MFFloat& getAvatarSize() const { return *data().avatarSize; }
  [[nodiscard]] MFFloat& editAvatarSize() { return *editData().avatarSize; }
  [[nodiscard]] const MFString& getType() const { return *data().type; }
  [[nodiscard]] MFString& editType() { return *editData().type; }
  [[nodiscard]] bool getHeadlight() const { return data().headlight->getValue(); }
  void setHeadlight(bool value) { editData().headlight->setValue(value); }
  [[nodiscard]] float getSpeed() const { return data().speed->getValue(); }
  void setSpeed(float value) { editData().speed->setValue(value); }
};

}  // namespace vrml
