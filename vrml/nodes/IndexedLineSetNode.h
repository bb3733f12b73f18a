#pragma once

// Lines given by lists of indices into their points; -1 ends a line.

#include "vrml/fields/MFInt32.h"
#include "vrml/fields/SFBool.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

struct IndexedLineSetData : NodeData {
  Named<SFBool> colorPerVertex{"colorPerVertex", true};
  Named<MFInt32> coordIndex{"coordIndex"};
  Named<MFInt32> colorIndex{"colorIndex"};
};

class IndexedLineSetNode final : public TypedNode<GeometryNode, IndexedLineSetData> {
 public:
  static const NodeClass kClass;
  explicit IndexedLineSetNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] bool getColorPerVertex() const { return data().colorPerVertex->getValue(); }
  void setColorPerVertex(bool value) { editData().colorPerVertex->setValue(value); }
  [[nodiscard]] const MFInt32& getCoordIndex() const { return *data().coordIndex; }
  [[nodiscard]] MFInt32& editCoordIndex() { return *editData().coordIndex; }
  [[nodiscard]] const MFInt32& getColorIndex() const { return *data().colorIndex; }
  [[nodiscard]] MFInt32& editColorIndex() { return *editData().colorIndex; }

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
