// The table of the Extrusion node, and its bounding box.

#include "vrml/nodes/ExtrusionNode.h"

#include <algorithm>
#include <cmath>

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGeometryFields, std::array{
                                dataField<&ExtrusionData::beginCap>(FieldList::field, "beginCap"),
                                dataField<&ExtrusionData::endCap>(FieldList::field, "endCap"),
                                dataField<&ExtrusionData::ccw>(FieldList::field, "ccw"),
                                dataField<&ExtrusionData::convex>(FieldList::field, "convex"),
                                dataField<&ExtrusionData::creaseAngle>(FieldList::field, "creaseAngle"),
                                dataField<&ExtrusionData::solid>(FieldList::field, "solid"),
                                dataField<&ExtrusionData::orientation>(FieldList::field, "orientation"),
                                dataField<&ExtrusionData::scale>(FieldList::field, "scale"),
                                dataField<&ExtrusionData::crossSection>(FieldList::field, "crossSection"),
                                dataField<&ExtrusionData::spine>(FieldList::field, "spine"),
                                madeField<MFRotation>(FieldList::eventIn, "orientation"),
                                madeField<MFVec2f>(FieldList::eventIn, "scale"),
                                madeField<MFVec2f>(FieldList::eventIn, "crossSection"),
                                madeField<MFVec3f>(FieldList::eventIn, "spine"),
                            });

}  // namespace

constinit const NodeClass ExtrusionNode::kClass = describe<ExtrusionNode>({.typeName = "Extrusion", .fields = kFields});

// The spine's box, grown on all sides by the farthest that a corner of the cross section can lie from it: enough for
// every orientation, and never too small.
BoundingBox ExtrusionNode::computeBox() const {
  float reach = 0.0f;
  for (const auto& corner : getCrossSection().values()) reach = std::max(reach, std::hypot(corner[0], corner[1]));
  float widest = getScale().getSize() == 0 ? 1.0f : 0.0f;
  for (const auto& scale : getScale().values()) widest = std::max({widest, std::fabs(scale[0]), std::fabs(scale[1])});
  reach *= widest;
  BoundingBox box;
  for (const auto& point : getSpine().values()) {
    box.add(point[0] - reach, point[1] - reach, point[2] - reach);
    box.add(point[0] + reach, point[1] + reach, point[2] + reach);
  }
  return box;
}

}  // namespace vrml
