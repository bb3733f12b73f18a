#pragma once

// A cylinder about the y axis, its middle at the origin.

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct CylinderData : NodeData {
  Named<SFFloat> radius{"radius", 1.0f};
  Named<SFFloat> height{"height", 2.0f};
  Named<SFBool> top{"top", true};
  Named<SFBool> side{"side", true};
  Named<SFBool> bottom{"bottom", true};
};

class CylinderNode final : public TypedNode<GeometryNode, CylinderData> {
 public:
  static const NodeClass kClass;
  explicit CylinderNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getRadius() const { return data().radius->getValue(); }
  void setRadius(float value) { editData().radius->setValue(value); }
  [[nodiscard]] float getHeight() const { return data().height->getValue(); }
  void setHeight(float value) { editData().height->setValue(value); }
  [[nodiscard]] bool getTop() const { return data().top->getValue(); }
  void setTop(bool value) { editData().top->setValue(value); }
  [[nodiscard]] bool getSide() const { return data().side->getValue(); }
  void setSide(bool value) { editData().side->setValue(value); }
  [[nodiscard]] bool getBottom() const { return data().bottom->getValue(); }
  void setBottom(bool value) { editData().bottom->setValue(value); }

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
