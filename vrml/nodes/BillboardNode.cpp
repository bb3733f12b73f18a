// The table of the Billboard node.

#include "vrml/nodes/BillboardNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGroupingFields, std::array{
                                dataField<&BillboardData::axisOfRotation>(FieldList::exposedField, "axisOfRotation"),
                            });

constexpr NodeMember kMembers[] = {
    {fieldKey("children"), true, kGroupingChildTypes},
};

}  // namespace

constinit const NodeClass BillboardNode::kClass = describe<BillboardNode>(
    {.typeName = "Billboard", .fields = kFields, .members = kMembers, .acceptedChildren = kGroupingChildTypes});

}  // namespace vrml
