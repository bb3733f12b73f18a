#pragma once

// What is seen behind everything: colours of ground and sky by angle, and six pictures around the viewer.

#include "vrml/fields/MFColor.h"
#include "vrml/fields/MFFloat.h"
#include "vrml/fields/MFString.h"
#include "vrml/nodes/BindableNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct BackgroundData : NodeData {
  Named<MFColor> groundColor{"groundColor"};
  Named<MFColor> skyColor{"skyColor"};
  Named<MFFloat> groundAngle{"groundAngle"};
  Named<MFFloat> skyAngle{"skyAngle"};
  Named<MFString> frontUrl{"frontUrl"};
  Named<MFString> backUrl{"backUrl"};
  Named<MFString> leftUrl{"leftUrl"};
  Named<MFString> rightUrl{"rightUrl"};
  Named<MFString> topUrl{"topUrl"};
  Named<MFString> bottomUrl{"bottomUrl"};
};

class BackgroundNode final : public TypedNode<BindableNode, BackgroundData> {
 public:
  static const NodeClass kClass;
  explicit BackgroundNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFColor& getGroundColor() const { return *data().groundColor; }
  [[nodiscard]] MFColor& editGroundColor() { return *editData().groundColor; }
  [[nodiscard]] const MFColor& getSkyColor() const { return *data().skyColor; }
  [[nodiscard]] MFColor& editSkyColor() { return *editData().skyColor; }
  [[nodiscard]] const MFFloat& getGroundAngle() const { return *data().groundAngle; }
  [[nodiscard]] MFFloat& editGroundAngle() { return *editData().groundAngle; }
  [[nodiscard]] const MFFloat& getSkyAngle() const { return *data().skyAngle; }
  [[nodiscard]] MFFloat& editSkyAngle() { return *editData().skyAngle; }
  [[nodiscard]] const MFString& getFrontUrl() const { return *data().frontUrl; }
  [[nodiscard]] MFString& editFrontUrl() { return *editData().frontUrl; }
  [[nodiscard]] const MFString& getBackUrl() const { return *data().backUrl; }
  [[nodiscard]] MFString& editBackUrl() { return *editData().backUrl; }
  [[nodiscard]] const MFString& getLeftUrl() const { return *data().leftUrl; }
  [[nodiscard]] MFString& editLeftUrl() { return *editData().leftUrl; }
  [[nodiscard]] const MFString& getRightUrl() const { return *data().rightUrl; }
  [[nodiscard]] MFString& editRightUrl() { return *editData().rightUrl; }
  [[nodiscard]] const MFString& getTopUrl() const { return *data().topUrl; }
  [[nodiscard]] MFString& editTopUrl() { return *editData().topUrl; }
  [[nodiscard]] const MFString& getBottomUrl() const { return *data().bottomUrl; }
  [[nodiscard]] MFString& editBottomUrl() { return *editData().bottomUrl; }
};

}  // namespace vrml
