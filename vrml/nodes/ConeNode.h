#pragma once

// A cone about the y axis, its middle at the origin, its tip up.

#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct ConeData : NodeData {
  Named<SFFloat> bottomRadius{"bottomRadius", 1.0f};
  Named<SFFloat> height{"height", 2.0f};
  Named<SFBool> side{"side", true};
  Named<SFBool> bottom{"bottom", true};
};

class ConeNode final : public TypedNode<GeometryNode, ConeData> {
 public:
  static const NodeClass kClass;
  explicit ConeNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getBottomRadius() const { return data().bottomRadius->getValue(); }
  void setBottomRadius(float value) { editData().bottomRadius->setValue(value); }
  [[nodiscard]] float getHeight() const { return data().height->getValue(); }
  void setHeight(float value) { editData().height->setValue(value); }
  [[nodiscard]] bool getSide() const { return data().side->getValue(); }
  void setSide(bool value) { editData().side->setValue(value); }
  [[nodiscard]] bool getBottom() const { return data().bottom->getValue(); }
  void setBottom(bool value) { editData().bottom->setValue(value); }

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
