#pragma once

// The list of points of a geometry.

#include "vrml/fields/MFVec3f.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct CoordinateData : NodeData {
  Named<MFVec3f> point{"point"};
};

class CoordinateNode final : public TypedNode<Node, CoordinateData> {
 public:
  static const NodeClass kClass;
  explicit CoordinateNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFVec3f& getPoint() const { return *data().point; }
  [[nodiscard]] MFVec3f& editPoint() { return *editData().point; }
};

}  // namespace vrml
