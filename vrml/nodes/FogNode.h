#pragma once

// What hides things far away.

#include <string_view>

#include "vrml/fields/SFColor.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/fields/SFString.h"
#include "vrml/nodes/BindableNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct FogData : NodeData {
  Named<SFColor> color{"color", 1.0f, 1.0f, 1.0f};
  Named<SFString> fogType{"fogType", "LINEAR"};
  Named<SFFloat> visibilityRange{"visibilityRange", 0.0f};
};

class FogNode final : public TypedNode<BindableNode, FogData> {
 public:
  static const NodeClass kClass;
  explicit FogNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const SFColor& getColor() const { return *data().color; }
  void setColor(float r, float g, float b) { editData().color->setValue(r, g, b); }
  [[nodiscard]] const char* getFogType() const { return data().fogType->getValue(); }
  void setFogType(std::string_view text) { editData().fogType->setValue(text); }
  [[nodiscard]] float getVisibilityRange() const { return data().visibilityRange->getValue(); }
  void setVisibilityRange(float value) { editData().visibilityRange->setValue(value); }
};

}  // namespace vrml
