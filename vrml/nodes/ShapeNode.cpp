// The table of the Shape node.

#include "vrml/nodes/ShapeNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr NodeMember kMembers[] = {
    {fieldKey("appearance"), false, NodeTypeSet("Appearance")},
    {fieldKey("geometry"), false, kGeometryTypes},
};

}  // namespace

constinit const NodeClass ShapeNode::kClass =
    describe<ShapeNode>({.typeName = "Shape",
                         .members = kMembers,
                         .acceptedChildren = NodeTypeSet("Appearance") | kGeometryTypes,
                         .childrenBlock = ChildrenBlock::asMembers});

}  // namespace vrml
