// The table of the TimeSensor node.

#include "vrml/nodes/TimeSensorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kSensorFields, std::array{
                              dataField<&TimeSensorData::loop>(FieldList::exposedField, "loop"),
                              dataField<&TimeSensorData::cycleInterval>(FieldList::exposedField, "cycleInterval"),
                              dataField<&TimeSensorData::startTime>(FieldList::exposedField, "startTime"),
                              dataField<&TimeSensorData::stopTime>(FieldList::exposedField, "stopTime"),
                              madeField<SFTime, -1>(FieldList::eventOut, "cycleTime"),
                              madeField<SFTime, -1>(FieldList::eventOut, "time"),
                              madeField<SFFloat, 0>(FieldList::eventOut, "fraction"),
                          });

}  // namespace

constinit const NodeClass TimeSensorNode::kClass =
    describe<TimeSensorNode>({.typeName = "TimeSensor", .fields = kFields});

}  // namespace vrml
