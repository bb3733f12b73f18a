#pragma once

// Lines of text in the x-y plane.

#include "vrml/fields/MFFloat.h"
#include "vrml/fields/MFString.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct TextData : NodeData {
  Named<SFFloat> maxExtent{"maxExtent", 1.0f};
  Named<MFFloat> length{"length"};
  Named<MFString> string{"string"};
};

class TextNode final : public TypedNode<GeometryNode, TextData> {
 public:
  static const NodeClass kClass;
  explicit TextNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] float getMaxExtent() const { return data().maxExtent->getValue(); }
  void setMaxExtent(float value) { editData().maxExtent->setValue(value); }
  [[nodiscard]] const MFFloat& getLength() const { return *data().length; }
  [[nodiscard]] MFFloat& editLength() { return *editData().length; }
  [[nodiscard]] const MFString& getString() const { return *data().string; }
  [[nodiscard]] MFString& editString() { return *editData().string; }
};

}  // namespace vrml
