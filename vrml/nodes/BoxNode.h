#pragma once

// A box about the origin, given by its edges. A USE of one stays a reference: the type is not among those that are
// copied.

#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct BoxData : NodeData {
  Named<SFVec3f> size{"size", 2.0f, 2.0f, 2.0f};
};

class BoxNode final : public TypedNode<GeometryNode, BoxData> {
 public:
  static const NodeClass kClass;
  explicit BoxNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const SFVec3f& getSize() const { return *data().size; }
  void setSize(float x, float y, float z) { editData().size->setValue(x, y, z); }

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
