// A geometry's box comes from computeBox, which each class answers from its own values; here it is noted.

#include "vrml/nodes/GeometryNode.h"

#include "vrml/nodes/CoordinateNode.h"

namespace vrml {

BoundingBox GeometryNode::computeBox() const { return {}; }

void GeometryNode::recomputeBoundingBox() {
  const BoundingBox box = computeBox();
  setComputedBox(box);
  const auto center = box.center();
  const auto half = box.halfExtents();
  static_cast<SFVec3f*>(getFifthField("bboxCenter"))->setValue(center);
  SFVec3f& size = *static_cast<SFVec3f*>(getFifthField("bboxSize"));
  if (box.isEmpty())
    size.setValue(-1.0f, -1.0f, -1.0f);
  else
    size.setValue(half[0] * 2.0f, half[1] * 2.0f, half[2] * 2.0f);
}

BoundingBox GeometryNode::boxOfPoints() const {
  BoundingBox box;
  if (const Node* const coord = getFirstChild(nodeType("Coordinate")))
    for (const auto& point : static_cast<const CoordinateNode*>(coord)->getPoint().values())
      box.add(point[0], point[1], point[2]);
  return box;
}

}  // namespace vrml
