// The table of the Normal node.

#include "vrml/nodes/NormalNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = std::array{
    dataField<&NormalData::vector>(FieldList::exposedField, "vector"),
};

}  // namespace

constinit const NodeClass NormalNode::kClass = describe<NormalNode>({.typeName = "Normal", .fields = kFields});

}  // namespace vrml
