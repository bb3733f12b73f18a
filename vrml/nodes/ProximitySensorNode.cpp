// The table of the ProximitySensor node.

#include "vrml/nodes/ProximitySensorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kSensorFields, std::array{
                              dataField<&ProximitySensorData::center>(FieldList::exposedField, "center"),
                              dataField<&ProximitySensorData::size>(FieldList::exposedField, "size"),
                              madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "position"),
                              madeField<SFRotation>(FieldList::eventOut, "orientation"),
                              madeField<SFTime, 0>(FieldList::eventOut, "enterTime"),
                              madeField<SFTime, 0>(FieldList::eventOut, "exitTime"),
                              madeField<SFBool, 0>(FieldList::fifth, "inRegion"),
                          });

}  // namespace

constinit const NodeClass ProximitySensorNode::kClass =
    describe<ProximitySensorNode>({.typeName = "ProximitySensor", .fields = kFields});

}  // namespace vrml
