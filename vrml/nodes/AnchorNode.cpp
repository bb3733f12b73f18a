// The table of the Anchor node.

#include "vrml/nodes/AnchorNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kGroupingFields, std::array{
                                dataField<&AnchorData::description>(FieldList::exposedField, "description"),
                                dataField<&AnchorData::parameter>(FieldList::exposedField, "parameter"),
                                dataField<&AnchorData::url>(FieldList::exposedField, "url"),
                            });

constexpr NodeMember kMembers[] = {
    {fieldKey("children"), true, kGroupingChildTypes},
};

constexpr FieldKey kWriteOrder[] = {fieldKey("description"), fieldKey("parameter"), fieldKey("url"),
                                    fieldKey("bboxCenter"), fieldKey("bboxSize")};

}  // namespace

constinit const NodeClass AnchorNode::kClass = describe<AnchorNode>({.typeName = "Anchor",
                                                                     .fields = kFields,
                                                                     .members = kMembers,
                                                                     .acceptedChildren = kGroupingChildTypes,
                                                                     .writeOrder = kWriteOrder});

}  // namespace vrml
