// The table of the CylinderSensor node.

#include "vrml/nodes/CylinderSensorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kSensorFields, std::array{
                              dataField<&CylinderSensorData::autoOffset>(FieldList::exposedField, "autoOffset"),
                              dataField<&CylinderSensorData::diskAngle>(FieldList::exposedField, "diskAngle"),
                              dataField<&CylinderSensorData::minAngle>(FieldList::exposedField, "minAngle"),
                              dataField<&CylinderSensorData::maxAngle>(FieldList::exposedField, "maxAngle"),
                              dataField<&CylinderSensorData::offset>(FieldList::exposedField, "offset"),
                              madeField<SFRotation>(FieldList::eventOut, "rotation"),
                              madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "trackPoint"),
                          });

}  // namespace

constinit const NodeClass CylinderSensorNode::kClass =
    describe<CylinderSensorNode>({.typeName = "CylinderSensor", .fields = kFields});

}  // namespace vrml
