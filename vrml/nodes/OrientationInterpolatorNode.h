#pragma once

// Rotations over the keys.

#include "vrml/fields/MFRotation.h"
#include "vrml/nodes/InterpolatorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct OrientationInterpolatorData : InterpolatorData {
  Named<MFRotation> keyValue{"keyValue"};
};

class OrientationInterpolatorNode final : public TypedNode<InterpolatorNode, OrientationInterpolatorData> {
 public:
  static const NodeClass kClass;
  explicit OrientationInterpolatorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFRotation& getKeyValue() const { return *data().keyValue; }
  [[nodiscard]] MFRotation& editKeyValue() { return *editData().keyValue; }
};

}  // namespace vrml
