#pragma once

// Points.

#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

class PointSetNode final : public TypedNode<GeometryNode, PlainData> {
 public:
  static const NodeClass kClass;
  explicit PointSetNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
