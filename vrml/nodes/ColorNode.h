#pragma once

// The list of colours of a geometry.

#include "vrml/fields/MFColor.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ColorData : NodeData {
  Named<MFColor> color{"color"};
};

class ColorNode final : public TypedNode<Node, ColorData> {
 public:
  static const NodeClass kClass;
  explicit ColorNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFColor& getColor() const { return *data().color; }
  [[nodiscard]] MFColor& editColor() { return *editData().color; }
};

}  // namespace vrml
