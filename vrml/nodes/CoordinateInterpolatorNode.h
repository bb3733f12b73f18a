#pragma once

// Points over the keys.

#include "vrml/fields/MFVec3f.h"
#include "vrml/nodes/InterpolatorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct CoordinateInterpolatorData : InterpolatorData {
  Named<MFVec3f> keyValue{"keyValue"};
};

class CoordinateInterpolatorNode final : public TypedNode<InterpolatorNode, CoordinateInterpolatorData> {
 public:
  static const NodeClass kClass;
  explicit CoordinateInterpolatorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFVec3f& getKeyValue() const { return *data().keyValue; }
  [[nodiscard]] MFVec3f& editKeyValue() { return *editData().keyValue; }
};

}  // namespace vrml
