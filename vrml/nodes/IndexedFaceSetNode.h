#pragma once

// Polygons given by lists of indices into their points; -1 ends a face.

#include "vrml/fields/MFInt32.h"
#include "vrml/fields/SFBool.h"
#include "vrml/fields/SFFloat.h"
#include "vrml/nodes/GeometryNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

/// How the faces are meant.
struct IndexedFaceSetFlags {
  Named<SFBool> ccw{"ccw", true};
  Named<SFBool> colorPerVertex{"colorPerVertex", true};
  Named<SFBool> normalPerVertex{"normalPerVertex", true};
  Named<SFBool> solid{"solid", true};
  Named<SFBool> convex{"convex", true};
  Named<SFFloat> creaseAngle{"creaseAngle", 0.0f};
};

/// The index lists of what has its own; without them the coordinate indices hold.
struct IndexedFaceSetIndices {
  Named<MFInt32> texCoordIndex{"texCoordIndex"};
  Named<MFInt32> colorIndex{"colorIndex"};
  Named<MFInt32> normalIndex{"normalIndex"};
};

struct IndexedFaceSetData : NodeData {
  Named<MFInt32> coordIndex{"coordIndex"};
  Rare<IndexedFaceSetFlags> flags;
  Rare<IndexedFaceSetIndices> indices;
};

class IndexedFaceSetNode final : public TypedNode<GeometryNode, IndexedFaceSetData> {
 public:
  static const NodeClass kClass;
  explicit IndexedFaceSetNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  [[nodiscard]] bool getCcw() const { return data().flags.get().ccw->getValue(); }
  void setCcw(bool value) { editData().flags.edit().ccw->setValue(value); }
  [[nodiscard]] bool getColorPerVertex() const { return data().flags.get().colorPerVertex->getValue(); }
  void setColorPerVertex(bool value) { editData().flags.edit().colorPerVertex->setValue(value); }
  [[nodiscard]] bool getNormalPerVertex() const { return data().flags.get().normalPerVertex->getValue(); }
  void setNormalPerVertex(bool value) { editData().flags.edit().normalPerVertex->setValue(value); }
  [[nodiscard]] bool getSolid() const { return data().flags.get().solid->getValue(); }
  void setSolid(bool value) { editData().flags.edit().solid->setValue(value); }
  [[nodiscard]] bool getConvex() const { return data().flags.get().convex->getValue(); }
  void setConvex(bool value) { editData().flags.edit().convex->setValue(value); }
  [[nodiscard]] float getCreaseAngle() const { return data().flags.get().creaseAngle->getValue(); }
  void setCreaseAngle(float value) { editData().flags.edit().creaseAngle->setValue(value); }
  [[nodiscard]] const MFInt32& getCoordIndex() const { return *data().coordIndex; }
  [[nodiscard]] MFInt32& editCoordIndex() { return *editData().coordIndex; }
  [[nodiscard]] const MFInt32& getTexCoordIndex() const { return *data().indices.get().texCoordIndex; }
  [[nodiscard]] MFInt32& editTexCoordIndex() { return *editData().indices.edit().texCoordIndex; }
  [[nodiscard]] const MFInt32& getColorIndex() const { return *data().indices.get().colorIndex; }
  [[nodiscard]] MFInt32& editColorIndex() { return *editData().indices.edit().colorIndex; }
  [[nodiscard]] const MFInt32& getNormalIndex() const { return *data().indices.get().normalIndex; }
  [[nodiscard]] MFInt32& editNormalIndex() { return *editData().indices.edit().normalIndex; }

  [[nodiscard]] BoundingBox computeBox() const override;
};

}  // namespace vrml
