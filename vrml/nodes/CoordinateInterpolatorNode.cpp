// The table of the CoordinateInterpolator node.

#include "vrml/nodes/CoordinateInterpolatorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields = joined(
    kInterpolatorFields, std::array{
                             dataField<&CoordinateInterpolatorData::keyValue>(FieldList::exposedField, "keyValue"),
                             madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "value"),
                         });

}  // namespace

constinit const NodeClass CoordinateInterpolatorNode::kClass =
    describe<CoordinateInterpolatorNode>({.typeName = "CoordinateInterpolator", .fields = kFields});

}  // namespace vrml
