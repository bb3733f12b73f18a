// The table of the TouchSensor node.

#include "vrml/nodes/TouchSensorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(kSensorFields, std::array{
                                                   madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "hitNormal"),
                                                   madeField<SFVec2f, 0, 0>(FieldList::eventOut, "hitTexCoord"),
                                                   madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "hitPoint"),
                                                   madeField<SFBool, 0>(FieldList::eventOut, "isOver"),
                                                   madeField<SFTime, 0>(FieldList::eventOut, "touchTime"),
                                               });

}  // namespace

constinit const NodeClass TouchSensorNode::kClass =
    describe<TouchSensorNode>({.typeName = "TouchSensor", .fields = kFields});

}  // namespace vrml
