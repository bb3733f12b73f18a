#pragma once

// The list of normals of a geometry.

#include "vrml/fields/MFVec3f.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct NormalData : NodeData {
  Named<MFVec3f> vector{"vector"};
};

class NormalNode final : public TypedNode<Node, NormalData> {
 public:
  static const NodeClass kClass;
  explicit NormalNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const MFVec3f& getVector() const { return *data().vector; }
  [[nodiscard]] MFVec3f& editVector() { return *editData().vector; }
};

}  // namespace vrml
