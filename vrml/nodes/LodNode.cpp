// The table of the LOD node.

#include "vrml/nodes/LodNode.h"

#include "vrml/nodes/NodeCategories.h"
#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&LodData::center>(FieldList::field, "center"),
    dataField<&LodData::range>(FieldList::field, "range"),
};

constexpr NodeMember kMembers[] = {
    {fieldKey("level"), true, kGroupingChildTypes},
};

}  // namespace

constinit const NodeClass LodNode::kClass = describe<LodNode>({.typeName = "LOD",
                                                               .fields = kFields,
                                                               .members = kMembers,
                                                               .acceptedChildren = kGroupingChildTypes,
                                                               .childrenKey = fieldKey("level")});

}  // namespace vrml
