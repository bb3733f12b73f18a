// The table of the Group node.

#include "vrml/nodes/GroupNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr NodeMember kMembers[] = {
    {fieldKey("children"), true, kGroupingChildTypes},
};

}  // namespace

constinit const NodeClass GroupNode::kClass = describe<GroupNode>(
    {.typeName = "Group", .fields = kGroupingFields, .members = kMembers, .acceptedChildren = kGroupingChildTypes});

}  // namespace vrml
