// The table of the PlaneSensor node.

#include "vrml/nodes/PlaneSensorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kSensorFields, std::array{
                              dataField<&PlaneSensorData::autoOffset>(FieldList::exposedField, "autoOffset"),
                              dataField<&PlaneSensorData::minPosition>(FieldList::exposedField, "minPosition"),
                              dataField<&PlaneSensorData::maxPosition>(FieldList::exposedField, "maxPosition"),
                              dataField<&PlaneSensorData::offset>(FieldList::exposedField, "offset"),
                              madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "translation"),
                              madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "trackPoint"),
                          });

}  // namespace

constinit const NodeClass PlaneSensorNode::kClass =
    describe<PlaneSensorNode>({.typeName = "PlaneSensor", .fields = kFields});

}  // namespace vrml
