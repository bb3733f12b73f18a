#pragma once

// A choice of versions of one thing by distance: its children are the levels, its ranges the distances between them.

#include "vrml/fields/MFFloat.h"
#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct LodData : NodeData {
  Named<SFVec3f> center{"center", 0.0f, 0.0f, 0.0f};
  Named<MFFloat> range{"range"};
};

class LodNode final : public TypedNode<Node, LodData> {
 public:
  static const NodeClass kClass;
  explicit LodNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] const SFVec3f& getCenter() const { return *data().center; }
  void setCenter(float x, float y, float z) { editData().center->setValue(x, y, z); }
  [[nodiscard]] const MFFloat& getRange() const { return *data().range; }
  [[nodiscard]] MFFloat& editRange() { return *editData().range; }
};

}  // namespace vrml
