// The table of the ColorInterpolator node.

#include "vrml/nodes/ColorInterpolatorNode.h"

#include "vrml/nodes/NodeTables.h"

namespace vrml {

namespace {

constexpr auto kFields =
    joined(kInterpolatorFields, std::array{
                                    dataField<&ColorInterpolatorData::keyValue>(FieldList::exposedField, "keyValue"),
                                    madeField<SFColor, 0, 0, 0>(FieldList::eventOut, "value"),
                                });

}  // namespace

constinit const NodeClass ColorInterpolatorNode::kClass =
    describe<ColorInterpolatorNode>({.typeName = "ColorInterpolator", .fields = kFields});

}  // namespace vrml
