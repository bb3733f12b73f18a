#pragma once

// The base of the nodes that group others. A group has a bounding box as its file gives it (the bbox fields) and one
// that is computed from what it holds; the two never mix.

#include "vrml/fields/SFVec3f.h"
#include "vrml/nodes/BoundingBox.h"
#include "vrml/nodes/Node.h"

namespace vrml {

/// The box that a file gives; few do.
struct GroupingBox {
  Named<SFVec3f> bboxCenter{"bboxCenter", 0.0f, 0.0f, 0.0f};
  Named<SFVec3f> bboxSize{"bboxSize", -1.0f, -1.0f, -1.0f};
};

struct GroupingData : NodeData {
  Rare<GroupingBox> bbox;
};

class GroupingNode : public Node {
 public:
  void prepare() override { recomputeBoundingBox(); }
  /// Sets the computed box to the union of the children's boxes, each as it lies in this node's coordinates.
  void recomputeBoundingBox() override;
  /// The box that was computed last; empty when none was.
  [[nodiscard]] BoundingBox getBoundingBox() const { return computedBox(); }

  [[nodiscard]] const SFVec3f& getBboxCenter() const { return *groupingData().bbox.get().bboxCenter; }
  void setBboxCenter(float x, float y, float z) { editGroupingData().bbox.edit().bboxCenter->setValue(x, y, z); }
  [[nodiscard]] const SFVec3f& getBboxSize() const { return *groupingData().bbox.get().bboxSize; }
  void setBboxSize(float x, float y, float z) { editGroupingData().bbox.edit().bboxSize->setValue(x, y, z); }
  /// Whether a size was given: one of -1 on each axis is none.
  [[nodiscard]] bool hasBboxSize() const { return !getBboxSize().equals(-1.0f, -1.0f, -1.0f); }

 protected:
  using Node::Node;

 private:
  [[nodiscard]] const GroupingData& groupingData() const { return static_cast<const GroupingData&>(data()); }
  [[nodiscard]] GroupingData& editGroupingData() { return static_cast<GroupingData&>(editData()); }
};

}  // namespace vrml
