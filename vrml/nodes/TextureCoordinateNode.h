#pragma once

// The list of texture coordinates of a geometry.

#include "vrml/fields/MFVec2f.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct TextureCoordinateData : NodeData {
  Named<MFVec2f> point{"point"};
};

class TextureCoordinateNode final : public TypedNode<Node, TextureCoordinateData> {
 public:
  static const NodeClass kClass;
  explicit TextureCoordinateNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFVec2f& getPoint() const { return *data().point; }
  [[nodiscard]] MFVec2f& editPoint() { return *editData().point; }
};

}  // namespace vrml
