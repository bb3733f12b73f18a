// The table of the Root node.

#include "vrml/nodes/RootNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr NodeMember kMembers[] = {
    {fieldKey("children"), true, kGroupingChildTypes},
};

}  // namespace

constinit const NodeClass RootNode::kClass = describe<RootNode>(
    {.typeName = "Root", .members = kMembers, .acceptedChildren = kGroupingChildTypes, .copyable = false});

}  // namespace vrml
