// The table of the OrientationInterpolator node.

#include "vrml/nodes/OrientationInterpolatorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(
    kInterpolatorFields, std::array{
                             dataField<&OrientationInterpolatorData::keyValue>(FieldList::exposedField, "keyValue"),
                             madeField<SFRotation>(FieldList::eventOut, "value"),
                         });

}  // namespace

constinit const NodeClass OrientationInterpolatorNode::kClass =
    describe<OrientationInterpolatorNode>({.typeName = "OrientationInterpolator", .fields = kFields});

}  // namespace vrml
