// The table of the WorldInfo node.

#include "vrml/nodes/WorldInfoNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&WorldInfoData::title>(FieldList::field, "title"),
    dataField<&WorldInfoData::info>(FieldList::field, "info"),
};

}  // namespace

constinit const NodeClass WorldInfoNode::kClass = describe<WorldInfoNode>({.typeName = "WorldInfo", .fields = kFields});

}  // namespace vrml
