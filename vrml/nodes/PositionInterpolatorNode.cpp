// The table of the PositionInterpolator node.

#include "vrml/nodes/PositionInterpolatorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kInterpolatorFields, std::array{
                                    dataField<&PositionInterpolatorData::keyValue>(FieldList::exposedField, "keyValue"),
                                    madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "value"),
                                });

}  // namespace

constinit const NodeClass PositionInterpolatorNode::kClass =
    describe<PositionInterpolatorNode>({.typeName = "PositionInterpolator", .fields = kFields});

}  // namespace vrml
