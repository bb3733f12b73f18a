// The table of the VisibilitySensor node.

#include "vrml/nodes/VisibilitySensorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kSensorFields, std::array{
                              dataField<&VisibilitySensorData::center>(FieldList::exposedField, "center"),
                              dataField<&VisibilitySensorData::size>(FieldList::exposedField, "size"),
                              madeField<SFTime, 0>(FieldList::eventOut, "enterTime"),
                              madeField<SFTime, 0>(FieldList::eventOut, "exitTime"),
                          });

}  // namespace

constinit const NodeClass VisibilitySensorNode::kClass =
    describe<VisibilitySensorNode>({.typeName = "VisibilitySensor", .fields = kFields});

}  // namespace vrml
