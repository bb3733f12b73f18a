// The table of the Viewpoint node.

#include "vrml/nodes/ViewpointNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kBindableFields, std::array{
                                dataField<&ViewpointData::position>(FieldList::exposedField, "position"),
                                dataField<&ViewpointData::orientation>(FieldList::exposedField, "orientation"),
                                dataField<&ViewpointData::description>(FieldList::field, "description"),
                                dataField<&ViewpointData::fieldOfView>(FieldList::exposedField, "fieldOfView"),
                                dataField<&ViewpointData::jump>(FieldList::exposedField, "jump"),
                            });

}  // namespace

constinit const NodeClass ViewpointNode::kClass = describe<ViewpointNode>({.typeName = "Viewpoint", .fields = kFields});

}  // namespace vrml
