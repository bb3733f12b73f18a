// The table of the NormalInterpolator node.

#include "vrml/nodes/NormalInterpolatorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kInterpolatorFields, std::array{
                                    dataField<&NormalInterpolatorData::keyValue>(FieldList::exposedField, "keyValue"),
                                    madeField<SFVec3f, 0, 0, 0>(FieldList::eventOut, "value"),
                                });

}  // namespace

constinit const NodeClass NormalInterpolatorNode::kClass =
    describe<NormalInterpolatorNode>({.typeName = "NormalInterpolator", .fields = kFields});

}  // namespace vrml
