#pragma once

// A group in a coordinate system of its own: its children are scaled, turned and moved.

#include "vrml/fields/SFRotation.h"
#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/GroupingNode.h"
#include "vrml/nodes/TypedNode.h"

namespace vrml {

/// The parts of a transform that few files give.
struct TransformRare {
  Named<SFVec3f> center{"center", 0.0f, 0.0f, 0.0f};
  Named<SFRotation> scaleOrientation{"scaleOrientation"};
};

struct TransformData : GroupingData {
  Named<SFVec3f> translation{"translation", 0.0f, 0.0f, 0.0f};
  Named<SFVec3f> scale{"scale", 1.0f, 1.0f, 1.0f};
  Named<SFRotation> rotation{"rotation"};
  Rare<TransformRare> rare;
};

class TransformNode final : public TypedNode<GroupingNode, TransformData> {
 public:
  static const NodeClass kClass;
  explicit TransformNode(NodeData* shared = nullptr) : TypedNode(kClass, shared) {}

  /// Writes the matrix that takes a point of the children into the coordinates of the parent: 16 numbers row by row,
  /// for row vectors, the translation in the fourth row. A point is moved by minus the centre, scaled along the scale
  /// orientation, rotated, moved back by the centre, and moved by the translation. A zero axis or a zero angle turns
  /// nothing.
  void getMatrix(double (&matrix)[16]) const;

  [[nodiscard]] const SFVec3f& getTranslation() const { return *data().translation; }
  void setTranslation(float x, float y, float z) { editData().translation->setValue(x, y, z); }
  [[nodiscard]] const SFVec3f& getScale() const { return *data().scale; }
  void setScale(float x, float y, float z) { editData().scale->setValue(x, y, z); }
  [[nodiscard]] const SFVec3f& getCenter() const { return *data().rare.get().center; }
  void setCenter(float x, float y, float z) { editData().rare.edit().center->setValue(x, y, z); }
  [[nodiscard]] const SFRotation& getRotation() const { return *data().rotation; }
  void setRotation(float x, float y, float z, float angle) { editData().rotation->setValue(x, y, z, angle); }
  [[nodiscard]] const SFRotation& getScaleOrientation() const { return *data().rare.get().scaleOrientation; }
  void setScaleOrientation(float x, float y, float z, float angle) {
    editData().rare.edit().scaleOrientation->setValue(x, y, z, angle);
  }
};

}  // namespace vrml
