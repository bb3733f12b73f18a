// The table of the Color node.

#include "vrml/nodes/ColorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&ColorData::color>(FieldList::exposedField, "color"),
};

}  // namespace

constinit const NodeClass ColorNode::kClass = describe<ColorNode>({.typeName = "Color", .fields = kFields});

}  // namespace vrml
