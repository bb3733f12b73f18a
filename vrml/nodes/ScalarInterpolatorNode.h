#pragma once

// Numbers over the keys.

#include "vrml/fields/MFFloat.h"
#include "vrml/nodes/InterpolatorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ScalarInterpolatorData : InterpolatorData {
  Named<MFFloat> keyValue{"keyValue"};
};

class ScalarInterpolatorNode final : public TypedNode<InterpolatorNode, ScalarInterpolatorData> {
 public:
  static const NodeClass kClass;
  explicit ScalarInterpolatorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFFloat& getKeyValue() const { return *data().keyValue; }
  [[nodiscard]] MFFloat& editKeyValue() { return *editData().keyValue; }
};

}  // namespace vrml
