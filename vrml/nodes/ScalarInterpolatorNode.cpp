// The table of the ScalarInterpolator node.

#include "vrml/nodes/ScalarInterpolatorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kInterpolatorFields, std::array{
                                    dataField<&ScalarInterpolatorData::keyValue>(FieldList::exposedField, "keyValue"),
                                    madeField<SFFloat, 0>(FieldList::eventOut, "value"),
                                });

}  // namespace

constinit const NodeClass ScalarInterpolatorNode::kClass =
    describe<ScalarInterpolatorNode>({.typeName = "ScalarInterpolator", .fields = kFields});

}  // namespace vrml
