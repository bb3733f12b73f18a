// The table of the Switch node.

#include "vrml/nodes/SwitchNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&SwitchData::whichChoice>(FieldList::field, "whichChoice"),
};

constexpr NodeMember kMembers[] = {
    {fieldKey("choice"), true, kGroupingChildTypes},
};

}  // namespace

constinit const NodeClass SwitchNode::kClass = describe<SwitchNode>({.typeName = "Switch",
                                                                     .fields = kFields,
                                                                     .members = kMembers,
                                                                     .acceptedChildren = kGroupingChildTypes,
                                                                     .childrenKey = fieldKey("choice")});

}  // namespace vrml
