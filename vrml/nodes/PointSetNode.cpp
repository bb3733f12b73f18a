// The table of the PointSet node, and its bounding box.

#include "vrml/nodes/PointSetNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr NodeMember kMembers[] = {
    {fieldKey("color"), false, NodeTypeSet("Color")},
    {fieldKey("coord"), false, NodeTypeSet("Coordinate")},
};

}  // namespace

constinit const NodeClass PointSetNode::kClass =
    describe<PointSetNode>({.typeName = "PointSet",
                            .fields = kGeometryFields,
                            .members = kMembers,
                            .acceptedChildren = NodeTypeSet("Color", "Coordinate"),
                            .childrenBlock = ChildrenBlock::asMembers});

BoundingBox PointSetNode::computeBox() const { return boxOfPoints(); }

}  // namespace vrml
