#pragma once

// Colours over the keys.

#include "vrml/fields/MFColor.h"
#include "vrml/nodes/InterpolatorNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ColorInterpolatorData : InterpolatorData {
  Named<MFColor> keyValue{"keyValue"};
};

class ColorInterpolatorNode final : public TypedNode<InterpolatorNode, ColorInterpolatorData> {
 public:
  static const NodeClass kClass;
  explicit ColorInterpolatorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFColor& getKeyValue() const { return *data().keyValue; }
  [[nodiscard]] MFColor& editKeyValue() { return *editData().keyValue; }
};

}  // namespace vrml
