// The table of the Collision node.

#include "vrml/nodes/CollisionNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGroupingFields, std::array{
                                dataField<&CollisionData::collide>(FieldList::exposedField, "collide"),
                                madeField<SFTime, -1>(FieldList::eventOut, "collideTime"),
                            });

constexpr NodeMember kMembers[] = {
    {fieldKey("proxy"), false, {}},
    {fieldKey("children"), true, kGroupingChildTypes},
};

}  // namespace

constinit const NodeClass CollisionNode::kClass = describe<CollisionNode>(
    {.typeName = "Collision", .fields = kFields, .members = kMembers, .acceptedChildren = kGroupingChildTypes});

}  // namespace vrml
