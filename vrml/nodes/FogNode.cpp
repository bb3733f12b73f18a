// The table of the Fog node.

#include "vrml/nodes/FogNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kBindableFields, std::array{
                                dataField<&FogData::color>(FieldList::exposedField, "color"),
                                dataField<&FogData::fogType>(FieldList::exposedField, "fogType"),
                                dataField<&FogData::visibilityRange>(FieldList::exposedField, "visibilityRange"),
                            });

}  // namespace

constinit const NodeClass FogNode::kClass = describe<FogNode>({.typeName = "Fog", .fields = kFields});

}  // namespace vrml
