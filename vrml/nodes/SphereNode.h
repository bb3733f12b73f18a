#pragma once

// A sphere about the origin.

#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct SphereData : NodeData {
  Named<SFFloat> radius{"radius", 1.0f};
};

class SphereNode final : public TypedNode<GeometryNode, SphereData> {
 public:
  static const NodeClass kClass;
  explicit SphereNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getRadius() const { return data().radius->getValue(); }
  void setRadius(float value) { editData().radius->setValue(value); }

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
