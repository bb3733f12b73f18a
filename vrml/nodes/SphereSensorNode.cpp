// The table of the SphereSensor node.

#include "vrml/nodes/SphereSensorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kSensorFields, std::array{
                              dataField<&SphereSensorData::autoOffset>(FieldList::exposedField, "autoOffset"),
                              dataField<&SphereSensorData::offset>(FieldList::exposedField, "offset"),
                              madeField<SFRotation>(FieldList::eventOut, "rotation"),
                              madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "trackPoint"),
                          });

}  // namespace

constinit const NodeClass SphereSensorNode::kClass =
    describe<SphereSensorNode>({.typeName = "SphereSensor", .fields = kFields});

}  // namespace vrml
